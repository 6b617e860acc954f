#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "spreadsheet/sheet.h"

namespace lomaris {

/// The number that a cell's text is, read strictly; nothing for other texts.
std::optional<double> NumberOf(std::string_view text);

/// The texts of an area as the clipboard takes them: tabs between cells, a line break between rows.
std::string ClipText(const Sheet& sheet, const CellArea& area);

/// What is said of the numeric cells of a selection.
struct SelectionStatistics {
  int Rows = 0;
  int Cols = 0;
  std::int64_t Numbers = 0;  ///< numeric cells
  long double Sum = 0;       ///< of numbers as large as cells take, beyond what those hold
  double Minimum = 0;        ///< 0, like the maximum, where there is no numeric cell
  double Maximum = 0;

  double Mean() const {
    return Numbers > 0 ? static_cast<double>(Sum / static_cast<long double>(Numbers)) : 0;
  }
};
SelectionStatistics StatisticsOf(const Sheet& sheet, const CellArea& area);

/// The next cell behind `from` that holds `text`, whatever its case; row by row, from the start
/// again behind the last cell, `from` itself last. Heads are not looked at. Nothing for an empty
/// `text`.
std::optional<CellPlace> FindNext(const Sheet& sheet, std::string_view text, CellPlace from);

/// The same the other way round: the last one before `from`.
std::optional<CellPlace> FindPrevious(const Sheet& sheet, std::string_view text, CellPlace from);

/// Where the selection is, counted from the first cell that is not fixed, and, of more than one
/// cell, what its numbers come to: "Rows 3 to 5, column 2: 3 numbers, sum 4.5, mean 1.5".
std::string SelectionSummary(const Sheet& sheet);

/// True while so many more rows or columns leave the table within the limit of its cells.
bool HasRoomFor(const Sheet& sheet, Axis axis, std::int64_t lines);

enum class Direction { Up, Down, Left, Right };

/// Where Ctrl and an arrow lead: to the end of the block of filled cells that `from` stands in, or
/// from its end to the start of the next one; with none ahead to the edge of the table.
CellPlace JumpTarget(const Sheet& sheet, CellPlace from, Direction direction);

}  // namespace lomaris

#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "core/dates.h"

namespace lomaris {

/// What a cell takes. The numbers are those that owners and stored layouts use; 4 is not assigned.
enum class FormatKind : int {
  Text = 0,
  DateTime = 1,      ///< shown as "mm/dd/yy hh:mm"
  Number = 2,        ///< list: "lower;upper"
  UpperText = 3,     ///< turned to upper case as it is typed
  Choice = 5,        ///< list: the items, "Yes;No"
  NumberedText = 6,  ///< as typed; the series command counts its trailing number up
  FileName = 7,
};

/// Kind of a column or of one cell, with the kind's parameter text.
struct Format {
  FormatKind Kind = FormatKind::Text;
  std::string List = {};

  bool operator==(const Format&) const = default;
};

/// Where a text stands between the edges of its cell.
enum class Alignment {
  General,  ///< numbers at the right, other texts at the left, heads in the middle
  Left,
  Center,
  Right,
};

/// What a cell has of its own.
struct CellStyle {
  Format Own = {};                       ///< of kind 0: that of its column holds
  Alignment Align = Alignment::General;  ///< General: that of its column holds
  bool Bold = false;

  bool operator==(const CellStyle&) const = default;
};

/// What the cells of a column have in common.
struct ColStyle {
  Format Cells = {};
  Alignment Align = Alignment::General;
  Alignment Heads = Alignment::General;  ///< of its fixed cells

  bool operator==(const ColStyle&) const = default;
};

/// A cell whose date is what its text says.
inline constexpr ModelDateTime kNoDate = std::numeric_limits<ModelDateTime>::lowest();

struct Cell {
  std::string Text = {};
  ModelDateTime Date = kNoDate;  ///< the full date behind a text that shows two digits of its year

  bool operator==(const Cell&) const = default;
};

/// Rows and columns count from 0, the fixed ones included.
struct CellPlace {
  int Row = 0;
  int Col = 0;

  auto operator<=>(const CellPlace&) const = default;
};

enum class Axis { Rows, Cols };

/// A rectangle of cells, all four bounds inclusive. Nothing in it when a lower bound is beyond its
/// upper one.
struct CellArea {
  int Top = 0;
  int Left = 0;
  int Bottom = -1;
  int Right = -1;

  int Rows() const { return std::max(0, Bottom - Top + 1); }
  int Cols() const { return std::max(0, Right - Left + 1); }
  std::int64_t Count() const { return std::int64_t{Rows()} * Cols(); }
  bool Empty() const { return Count() == 0; }

  bool operator==(const CellArea&) const = default;
};

/// What a person has selected: from the cell where it began to the one where it ended. Where whole
/// lines were chosen as such, by their heads for one, it says which: in a table with a single row
/// or column the cells alone do not tell.
struct Selection {
  int Row = 0;
  int Col = 0;
  int RowSel = 0;
  int ColSel = 0;
  std::optional<Axis> Whole = {};

  CellArea Area() const {
    return {std::min(Row, RowSel), std::min(Col, ColSel), std::max(Row, RowSel),
            std::max(Col, ColSel)};
  }
  bool operator==(const Selection&) const = default;
};

}  // namespace lomaris

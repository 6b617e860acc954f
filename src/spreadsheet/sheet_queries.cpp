#include "spreadsheet/sheet_queries.h"

#include <cmath>

#include <fmt/format.h>

#include "core/cell_limit.h"
#include "core/numbers.h"
#include "core/text.h"
#include "spreadsheet/clip_cells.h"

namespace lomaris {
namespace {

CellPlace Towards(CellPlace place, Direction direction) {
  switch (direction) {
    case Direction::Up:
      return {place.Row - 1, place.Col};
    case Direction::Down:
      return {place.Row + 1, place.Col};
    case Direction::Left:
      return {place.Row, place.Col - 1};
    case Direction::Right:
      break;
  }
  return {place.Row, place.Col + 1};
}

bool IsWithin(const CellArea& area, CellPlace place) {
  return place.Row >= area.Top && place.Row <= area.Bottom && place.Col >= area.Left &&
         place.Col <= area.Right;
}

/// Looks at all cells, from the one that `next` makes of `from` on.
template <class Next>
std::optional<CellPlace> Find(const Sheet& sheet, std::string_view text, CellPlace from,
                              Next&& next) {
  const CellArea area = sheet.AllCells();
  if (text.empty() || area.Empty()) return std::nullopt;
  const std::string wanted = UpperCase(text);
  CellPlace place = IsWithin(area, from) ? from : CellPlace{area.Bottom, area.Right};
  for (std::int64_t left = area.Count(); left > 0; --left) {
    place = next(area, place);
    const std::string& candidate = sheet.TextMatrix(place.Row, place.Col);
    if (candidate.empty()) continue;
    if (UpperCase(candidate).find(wanted) != std::string::npos) return place;
  }
  return std::nullopt;
}

/// "Row 3" or "Rows 3 to 5".
std::string LinesText(std::string_view name, int first, int last, int fixed) {
  const int from = first - fixed + 1;
  if (first == last) return fmt::format("{} {}", name, from);
  return fmt::format("{}s {} to {}", name, from, last - fixed + 1);
}

}  // namespace

std::optional<double> NumberOf(std::string_view text) {
  if (!IsNumeric(text)) return std::nullopt;
  return ToDouble(text);
}

std::string ClipText(const Sheet& sheet, const CellArea& area) {
  std::string text;
  for (int row = area.Top; row <= area.Bottom; ++row) {
    if (row > area.Top) text += kLineBreak;
    for (int col = area.Left; col <= area.Right; ++col) {
      if (col > area.Left) text += '\t';
      text += ClipCell(sheet.TextMatrix(row, col));
    }
  }
  return text;
}

SelectionStatistics StatisticsOf(const Sheet& sheet, const CellArea& area) {
  SelectionStatistics all{.Rows = area.Rows(), .Cols = area.Cols()};
  for (int row = area.Top; row <= area.Bottom; ++row) {
    for (int col = area.Left; col <= area.Right; ++col) {
      const std::optional<double> number = NumberOf(sheet.TextMatrix(row, col));
      if (!number) continue;
      const bool first = all.Numbers++ == 0;
      all.Sum += *number;
      all.Minimum = first ? *number : Min(all.Minimum, *number);
      all.Maximum = first ? *number : Max(all.Maximum, *number);
    }
  }
  return all;
}

std::optional<CellPlace> FindNext(const Sheet& sheet, std::string_view text, CellPlace from) {
  return Find(sheet, text, from, [](const CellArea& area, CellPlace place) {
    if (++place.Col > area.Right) place = {place.Row + 1, area.Left};
    return place.Row > area.Bottom ? CellPlace{area.Top, area.Left} : place;
  });
}

std::optional<CellPlace> FindPrevious(const Sheet& sheet, std::string_view text, CellPlace from) {
  return Find(sheet, text, from, [](const CellArea& area, CellPlace place) {
    if (--place.Col < area.Left) place = {place.Row - 1, area.Right};
    return place.Row < area.Top ? CellPlace{area.Bottom, area.Right} : place;
  });
}

std::string SelectionSummary(const Sheet& sheet) {
  const CellArea area = sheet.SelectedArea();
  if (area.Empty()) return {};
  std::string text =
      fmt::format("{}, {}", LinesText("Row", area.Top, area.Bottom, sheet.FixedRows()),
                  LinesText("column", area.Left, area.Right, sheet.FixedCols()));
  if (area.Count() == 1) return text;
  const SelectionStatistics all = StatisticsOf(sheet, area);
  text += fmt::format(": {} number{}", all.Numbers, all.Numbers == 1 ? "" : "s");
  const auto sum = static_cast<double>(all.Sum);
  if (all.Numbers > 0 && std::isfinite(sum)) {
    text += fmt::format(", sum {}, mean {}", NumberText(sum), NumberText(all.Mean()));
  }
  return text;
}

bool HasRoomFor(const Sheet& sheet, Axis axis, std::int64_t lines) {
  const std::int64_t now = axis == Axis::Rows ? sheet.Rows() : sheet.Cols();
  const std::int64_t across = axis == Axis::Rows ? sheet.Cols() : sheet.Rows();
  return now + lines <= kMostCells / Max<std::int64_t>(across, 1);
}

CellPlace JumpTarget(const Sheet& sheet, CellPlace from, Direction direction) {
  const CellArea area = sheet.AllCells();
  const auto within = [&](CellPlace place) { return IsWithin(area, place); };
  const auto filled = [&](CellPlace place) {
    return within(place) && !sheet.TextMatrix(place.Row, place.Col).empty();
  };
  CellPlace place = from;
  CellPlace next = Towards(place, direction);
  const bool insideBlock = filled(place) && filled(next);
  for (; within(next); next = Towards(next, direction)) {
    if (insideBlock && !filled(next)) break;
    place = next;
    if (!insideBlock && filled(place)) break;
  }
  return place;
}

}  // namespace lomaris

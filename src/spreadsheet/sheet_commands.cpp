#include "spreadsheet/sheet_commands.h"

#include <fmt/format.h>

#include "core/error_report.h"
#include "core/numbers.h"
#include "core/text.h"
#include "spreadsheet/cell_checks.h"
#include "spreadsheet/clip_cells.h"
#include "spreadsheet/sheet_queries.h"

namespace lomaris {
namespace {

constexpr std::int64_t kMostFilledBytes = std::int64_t{256} << 20;
constexpr double kHoursPerDay = 24;
constexpr std::string_view kNotANumber = "You must enter a valid number.";

/// A long text into many cells would take more memory than there is: error 7.
void CheckRoom(std::string_view text, std::int64_t cells) {
  if (static_cast<std::int64_t>(text.size()) > kMostFilledBytes / Max<std::int64_t>(cells, 1)) {
    throw RuntimeError(ErrorNumber::OutOfMemory);
  }
}

/// The area that a pasted text takes from the cell `corner` on: as many rows as it has lines, as
/// many columns as its first line has pieces, but no further than the last cell.
CellArea AreaFor(std::string_view text, const CellArea& corner, const CellArea& all) {
  CellArea area{corner.Top, corner.Left, corner.Top - 1, corner.Left - 1};
  bool firstRow = true;
  for (ClipCells cells(text); cells.More() && area.Bottom < all.Bottom;) {
    cells.Next();
    if (firstRow && area.Right < all.Right) ++area.Right;
    if (!cells.AtRowEnd()) continue;
    firstRow = false;
    ++area.Bottom;
  }
  return area;
}

bool IsSingleCell(std::string_view text) {
  ClipCells cells(text);
  cells.Next();
  return !cells.More();
}

std::string SeriesNeeds(std::string_view first) {
  return fmt::format(
      "You must select a range of cells in a single column beginning with a {} before a series can "
      "be created.",
      first);
}

Cell SingleCell(double value) {
  return {NumberText(static_cast<float>(value))};
}

/// The lines of the selection that a command may touch, as runs of neighbours: first and count.
std::vector<std::pair<int, int>> FreeRuns(const Sheet& sheet, Axis axis, const CellArea& area) {
  std::vector<std::pair<int, int>> runs;
  const bool rows = axis == Axis::Rows;
  for (int line = rows ? area.Top : area.Left; line <= (rows ? area.Bottom : area.Right); ++line) {
    if (!sheet.IsFreeLine(axis, line)) continue;
    if (runs.empty() || runs.back().first + runs.back().second != line) runs.emplace_back(line, 0);
    ++runs.back().second;
  }
  return runs;
}

/// The lines that are selected whole. Where the selection does not say so itself the cells tell,
/// but for a cell alone, and in a table with a single row no cells are columns: a command on rows
/// is not to take columns of the table.
std::optional<Axis> WholeLines(const Sheet& sheet) {
  const CellArea area = sheet.SelectedArea();
  const CellArea all = sheet.AllCells();
  if (area.Empty()) return std::nullopt;
  if (sheet.Selected().Whole) return sheet.Selected().Whole;
  if (area.Count() == 1) return std::nullopt;
  if (area.Left == all.Left && area.Right == all.Right) return Axis::Rows;
  if (area.Top == all.Top && area.Bottom == all.Bottom && all.Rows() > 1) return Axis::Cols;
  return std::nullopt;
}

bool IsLineCommand(SheetCommand command) {
  return command == SheetCommand::Insert || command == SheetCommand::Delete;
}

/// The text with the number at its end raised by 1. The number may be as long as it likes, and
/// keeps its width, as people number their sections: "XS009" is followed by "XS010", "9" by "10". A
/// text without a number at its end is followed by the one with 1.
std::string NextInSeries(std::string text) {
  const std::size_t last = text.find_last_not_of("0123456789");
  const std::size_t first = last == std::string::npos ? 0 : last + 1;
  if (first == text.size()) return text + '1';
  for (std::size_t digit = text.size(); digit-- > first;) {
    if (text[digit] != '9') {
      ++text[digit];
      return text;
    }
    text[digit] = '0';
  }
  return text.insert(first, 1, '1');
}

}  // namespace

const SheetCommands::Routine SheetCommands::kRoutines[] = {
    &SheetCommands::Cut,       &SheetCommands::Copy,      &SheetCommands::Paste,
    &SheetCommands::Clear,     &SheetCommands::SelectAll, &SheetCommands::Fill,
    &SheetCommands::Series,    &SheetCommands::Multiply,  &SheetCommands::Add,
    &SheetCommands::ShowStats, &SheetCommands::Append,    &SheetCommands::Insert,
    &SheetCommands::Delete};

bool SheetCommands::Offered(SheetCommand command) const {
  if (command == SheetCommand::Append && sheet_.KeepRows) return false;
  if (IsLineCommand(command) && sheet_.KeepRows && sheet_.KeepCols) return false;
  return !sheet_.ReadOnly || !kEditMenu[static_cast<std::size_t>(command)].Changes;
}

void SheetCommands::Run(SheetCommand command) {
  if (!Offered(command)) return;
  // The report of a failure takes the clipboard: to try again is to paste the same once more.
  pasted_ = command == SheetCommand::Paste ? ui_.ClipboardText() : std::string();
  Trap trap(ui_, "mnuEditItem_Click", "Form", "Spreadsheet");
  trap.Run([&] { (this->*kRoutines[static_cast<std::size_t>(command)])(); });
  pasted_ = {};
}

void SheetCommands::ShowError(std::string_view text) {
  ui_.ShowMessage({.Text = std::string(text), .Title = "Error", .BoxIcon = Icon::Critical});
}

std::optional<double> SheetCommands::AskNumber(const InputBox& box) {
  const std::string answer = ui_.AskText(box);
  if (Trim(answer).empty()) return std::nullopt;
  const std::optional<double> number = NumberOf(answer);
  if (!number) ShowError(kNotANumber);
  return number;
}

template <class CellAt>
void SheetCommands::WriteFree(const CellArea& area, CellAt&& cellAt) {
  sheet_.AsStep([&] {
    for (int row = area.Top; row <= area.Bottom; ++row) {
      for (int col = area.Left; col <= area.Right; ++col) {
        if (sheet_.IsReadOnly(row, col)) continue;
        if (std::optional<Cell> cell = cellAt(row, col)) {
          sheet_.SetCell(row, col, *std::move(cell));
        }
      }
    }
    return true;
  });
}

void SheetCommands::WriteAll(const CellArea& area, const Cell& cell) {
  for (int row = area.Top; row <= area.Bottom; ++row) {
    for (int col = area.Left; col <= area.Right; ++col) sheet_.SetCell(row, col, cell);
  }
}

void SheetCommands::Copy() {
  const CellArea area = sheet_.SelectedArea();
  if (area.Empty()) return;
  const std::string text = sheet_.Clip();
  copied_ = {};
  for (int row = area.Top; row <= area.Bottom; ++row) {
    for (int col = area.Left; col <= area.Right; ++col) {
      const Cell& cell = sheet_.At(row, col);
      if (cell.Date == kNoDate || ParseDate(cell.Text) == cell.Date) continue;
      copied_.Cells.push_back({{row - area.Top, col - area.Left}, cell});
    }
  }
  if (!copied_.Cells.empty()) copied_.Text = PastedText(text);
  ui_.SetClipboardText(text);
}

void SheetCommands::Cut() {
  const CellArea area = sheet_.SelectedArea();
  if (area.Empty()) return;
  Copy();
  WriteFree(area, [](int, int) { return Cell{}; });
}

/// Read-only cells of the selection are cleared as well, unlike by Cut: rows that an owner has
/// closed to typing are emptied this way before they are filled anew.
void SheetCommands::Clear() {
  const CellArea area = sheet_.SelectedArea();
  if (area.Empty()) return;
  sheet_.AsStep([&] {
    WriteAll(area, {});
    return true;
  });
}

void SheetCommands::SelectAll() {
  sheet_.SelectArea(sheet_.AllCells());
}

/// What is pasted is not held against the kinds of the cells, and read-only cells take it too: a
/// block from another program comes in as it stands, whole and in place, and is put right in the
/// table. The owner checks all cells before it saves. A clipboard without a text empties no cells.
void SheetCommands::Paste() {
  const CellArea area = sheet_.SelectedArea();
  if (area.Empty() || pasted_.empty()) return;
  const std::string text = PastedText(pasted_);
  const DatedCells none;
  const DatedCells& dates = text == copied_.Text ? std::as_const(copied_.Cells) : none;
  sheet_.AsStep([&] {
    if (area.Count() == 1) {
      sheet_.SelectArea(AreaFor(text, area, sheet_.AllCells()));
      PasteBlock(text, dates);
    } else if (!IsSingleCell(text)) {
      PasteBlock(text, dates);
    } else {
      CheckRoom(text, area.Count());
      WriteAll(area, dates.empty() ? Cell{ClipCells::CellOf(text)} : dates.front().second);
    }
    return true;
  });
}

void SheetCommands::PasteBlock(std::string_view text, const DatedCells& dates) {
  sheet_.SetClip(text);
  const CellArea area = sheet_.SelectedArea();
  for (const auto& [place, cell] : dates) {
    const CellPlace target{area.Top + place.Row, area.Left + place.Col};
    if (target.Row > area.Bottom || target.Col > area.Right) continue;
    sheet_.SetCell(target.Row, target.Col, cell);
  }
}

void SheetCommands::Fill() {
  const CellArea area = sheet_.SelectedArea();
  if (area.Empty()) return;
  const Cell first = sheet_.At(area.Top, area.Left);
  CheckRoom(first.Text, area.Count());
  WriteFree(area, [&](int, int) { return first; });
}

void SheetCommands::Series() {
  const CellArea area = sheet_.SelectedArea();
  if (area.Empty()) return;
  switch (sheet_.FormatOf(area.Top, area.Left).Kind) {
    case FormatKind::DateTime:
      return DateSeries(area);
    case FormatKind::Number:
      return NumberSeries(area);
    case FormatKind::UpperText:
    case FormatKind::NumberedText:
      return TextSeries(area);
    default:
      ShowError(
          "You can only create series in columns containing uppercase text, dates or numbers.");
  }
}

void SheetCommands::DateSeries(const CellArea& area) {
  const std::optional<ModelDateTime> first = sheet_.DateOf(area.Top, area.Left);
  if (area.Cols() > 1 || !first) return ShowError(SeriesNeeds("valid date"));
  const std::optional<double> hours =
      AskNumber({"Enter the number of hours between values in the series:", "Series", "1"});
  if (!hours) return;
  WriteFree(area, [&](int row, int) {
    return DateCell(*first + (row - area.Top) * *hours / kHoursPerDay);
  });
}

void SheetCommands::NumberSeries(const CellArea& area) {
  const std::optional<double> first = NumberOf(sheet_.TextMatrix(area.Top, area.Left));
  if (area.Cols() > 1 || !first) return ShowError(SeriesNeeds("valid number"));
  const std::optional<double> increment =
      AskNumber({"Enter the number to increment values in the series:", "Series", "1"});
  if (!increment) return;
  WriteFree(area, [&](int row, int) { return SingleCell(*first + (row - area.Top) * *increment); });
}

void SheetCommands::TextSeries(const CellArea& area) {
  std::string text = sheet_.TextMatrix(area.Top, area.Left);
  if (area.Cols() > 1 || text.empty()) return ShowError(SeriesNeeds("non-empty text value"));
  CheckRoom(text, area.Count());
  std::string next = std::move(text);
  WriteFree(area, [&, row = area.Top](int target, int) mutable {
    for (; row < target; ++row) next = NextInSeries(std::move(next));
    return Cell{next};
  });
}

template <class Change>
void SheetCommands::ChangeNumbers(Change&& change) {
  WriteFree(sheet_.SelectedArea(), [&](int row, int col) -> std::optional<Cell> {
    const std::optional<double> number = NumberOf(sheet_.TextMatrix(row, col));
    if (!number) return std::nullopt;
    return SingleCell(change(*number));
  });
}

void SheetCommands::Multiply() {
  const std::optional<double> factor =
      AskNumber({"Enter the number to multiply each cell by:", "Multiply", "1"});
  if (factor) ChangeNumbers([&](double number) { return number * *factor; });
}

void SheetCommands::Add() {
  const std::optional<double> addend =
      AskNumber({"Enter the number to add to each cell:", "Add", "0"});
  if (addend) ChangeNumbers([&](double number) { return number + *addend; });
}

void SheetCommands::ShowStats() {
  const SelectionStatistics all = StatisticsOf(sheet_, sheet_.SelectedArea());
  const auto shown = [&](double value) { return all.Numbers > 0 ? NumberText(value) : ""; };
  ui_.ShowMessage(
      {.Text = fmt::format("Number of rows selected = {}{nl}"
                           "Number of columns selected = {}{nl}"
                           "Total number of numeric cells = {}{nl}"
                           "Minimum value = {}{nl}Maximum value = {}{nl}Mean value = {}",
                           all.Rows, all.Cols, all.Numbers, shown(all.Minimum), shown(all.Maximum),
                           shown(all.Mean()), fmt::arg("nl", kLineBreak)),
       .Title = "Statistics",
       .BoxIcon = Icon::Information});
}

bool SheetCommands::CheckRoomFor(Axis axis, std::int64_t lines) {
  const bool room = HasRoomFor(sheet_, axis, lines);
  if (!room) ShowError("You have exceeded the maximum number of cells in the grid (350,000).");
  return room;
}

bool SheetCommands::CheckMayMove(Axis axis) {
  const bool rows = axis == Axis::Rows;
  const bool may = !(rows ? sheet_.KeepRows : sheet_.KeepCols);
  if (!may) ShowError(fmt::format("This table keeps its {}.", rows ? "rows" : "columns"));
  return may;
}

void SheetCommands::Append() {
  const std::optional<double> answer =
      AskNumber({"Enter number of rows to append to bottom of grid:", "Append Rows"});
  if (!answer) return;
  // Beyond the limit any number of rows is too many, however large.
  const auto rows = static_cast<int>(std::clamp<double>(*answer, 0, kMostCells + 1));
  if (rows < 1) return ShowError(kNotANumber);
  if (CheckRoomFor(Axis::Rows, rows)) sheet_.InsertLines(Axis::Rows, sheet_.Rows(), rows);
}

void SheetCommands::Insert() {
  const std::optional<Axis> axis = WholeLines(sheet_);
  if (!axis) return ShowError("You must select entire rows or columns if you want to insert.");
  if (!CheckMayMove(*axis)) return;
  const std::vector<std::pair<int, int>> runs = FreeRuns(sheet_, *axis, sheet_.SelectedArea());
  int count = 0;
  for (const auto& run : runs) count += run.second;
  if (count > 0 && CheckRoomFor(*axis, count)) {
    sheet_.InsertLines(*axis, runs.front().first, count);
  }
}

void SheetCommands::Delete() {
  const std::optional<Axis> axis = WholeLines(sheet_);
  if (!axis) return ShowError("You must select entire rows or columns if you want to delete.");
  if (!CheckMayMove(*axis)) return;
  std::vector<std::pair<int, int>> runs = FreeRuns(sheet_, *axis, sheet_.SelectedArea());
  sheet_.AsStep([&] {
    bool deleted = false;
    // From the end, so that the places of the runs to come stay as they are.
    for (; !runs.empty(); runs.pop_back()) {
      if (!sheet_.DeleteLines(*axis, runs.back().first, runs.back().second)) break;
      deleted = true;
    }
    return deleted;
  });
}

}  // namespace lomaris

#include "spreadsheet/sheet.h"

#include <algorithm>

#include "core/raised_flag.h"
#include "core/text.h"
#include "spreadsheet/cell_checks.h"

namespace lomaris {

Sheet::Sheet(int rows, int cols, int fixedRows, int fixedCols)
    : fixedRows_(fixedRows), fixedCols_(fixedCols) {
  SetCols(cols);
  SetRows(rows);
}

void Sheet::SetFixed(int rows, int cols) {
  fixedRows_ = std::clamp(rows, 0, Rows());
  fixedCols_ = std::clamp(cols, 0, Cols());
  NumberFrom(fixedRows_);
  Select(selected_);
  Refresh(true);
}

void Sheet::Refresh(bool shape) const {
  if (Events.Refresh) Events.Refresh(shape);
}

void Sheet::SetNumberRows(bool numberRows) {
  numberRows_ = numberRows;
  NumberFrom(fixedRows_);
  Refresh(false);
}

void Sheet::NumberFrom(int first) {
  if (!numberRows_ || fixedCols_ == 0) return;
  for (int row = std::max(first, fixedRows_); row < Rows(); ++row) {
    grid_.At(row, 0) = {std::to_string(row - fixedRows_ + 1)};
  }
}

void Sheet::SetCell(int row, int col, Cell cell) {
  Cell& target = grid_.At(row, col);
  const bool same = target.Text == cell.Text && (cell.Date == kNoDate || cell.Date == target.Date);
  if (replaying_ || same) return;
  if (!inStep_) {
    history_.Clear();
    target = std::move(cell);
    Refresh(false);
    return;
  }
  auto& changes = step_.Changes;
  if (changes.empty() || !std::holds_alternative<CellWrites>(changes.back())) {
    changes.emplace_back(CellWrites());
  }
  std::get<CellWrites>(changes.back())
      .push_back({{row, col}, std::exchange(target, std::move(cell))});
}

void Sheet::SetDate(int row, int col, ModelDateTime dateTime) {
  SetCell(row, col, DateCell(dateTime));
}

std::optional<ModelDateTime> Sheet::DateOf(int row, int col) const {
  const Cell& cell = grid_.At(row, col);
  if (cell.Date != kNoDate) return cell.Date;
  return ParseDate(cell.Text);
}

void Sheet::SetColHeadings(std::span<const std::pair<int, std::string>> headings) {
  for (const auto& [col, heading] : headings) {
    SetTextMatrix(0, col, ReplaceAll(heading, "|", "\n"));
  }
}

void Sheet::AddItem(std::string_view texts) {
  const int row = Rows();
  SetRows(row + 1);
  for (int col = 0; col < Cols() && row < Rows(); ++col) {
    const std::size_t end = std::min(texts.find('\t'), texts.size());
    const bool isNumber = numberRows_ && fixedCols_ > 0 && col == 0;
    if (!isNumber) SetTextMatrix(row, col, std::string(texts.substr(0, end)));
    texts.remove_prefix(std::min(end + 1, texts.size()));
  }
}

bool Sheet::IsFreeLine(Axis axis, int line) const {
  if (axis == Axis::Cols) return line >= fixedCols_ + ReadOnlyCols;
  return line >= fixedRows_ + ReadOnlyRows && !ReadOnlyRow(line);
}

bool Sheet::IsReadOnly(int row, int col) const {
  return ReadOnly || !IsFreeLine(Axis::Rows, row) || !IsFreeLine(Axis::Cols, col);
}

bool Sheet::EndEdit(int row, int col, std::string_view text) {
  if (!CanEdit(row, col)) return false;
  std::optional<Cell> checked = CheckedText(FormatOf(row, col), text);
  if (!checked) return false;
  return AsStep([&] {
    SetCell(row, col, InCenturyOf(At(row, col), *std::move(checked), text));
    return true;
  });
}

bool Sheet::EndEdit(int row, int col, ModelDateTime dateTime) {
  if (!CanEdit(row, col)) return false;
  return AsStep([&] {
    SetDate(row, col, dateTime);
    return true;
  });
}

CellArea Sheet::SelectedArea() const {
  return AllCells().Empty() ? CellArea{} : selected_.Area();
}

void Sheet::Select(const Selection& selection) {
  const auto within = [](int line, int first, int count) {
    return std::clamp(line, first, std::max(first, count - 1));
  };
  selected_ = {within(selection.Row, fixedRows_, Rows()), within(selection.Col, fixedCols_, Cols()),
               within(selection.RowSel, fixedRows_, Rows()),
               within(selection.ColSel, fixedCols_, Cols())};
}

void Sheet::ApplyLines(LineChange& change, bool insert) {
  if (insert) {
    grid_.Put(change.Of, change.First, std::exchange(change.Lines, {}));
  } else {
    change.Lines = grid_.Take(change.Of, change.First, change.Count);
  }
  if (change.Of == Axis::Rows) NumberFrom(change.First);
  Select(selected_);
}

void Sheet::RecordLines(LineChange change) {
  if (inStep_) {
    step_.Changes.emplace_back(std::move(change));
  } else {
    history_.Clear();
    Refresh(true);
  }
}

void Sheet::SetLines(Axis axis, int count) {
  const int now = axis == Axis::Rows ? Rows() : Cols();
  count = std::max(count, axis == Axis::Rows ? fixedRows_ : fixedCols_);
  if (replaying_ || count == now) return;
  LineChange change{.Of = axis,
                    .Inserted = count > now,
                    .First = std::min(now, count),
                    .Count = std::abs(count - now)};
  if (change.Inserted) change.Lines = grid_.BlankLines(axis, change.Count);
  ApplyLines(change, change.Inserted);
  RecordLines(std::move(change));
}

bool Sheet::AskBefore(const LineChange& change, bool insert) const {
  const auto& event = insert ? Events.BeforeRowInsert : Events.BeforeRowDelete;
  bool cancel = false;
  if (change.Told && event) event(change.First, change.Count, cancel);
  return !cancel;
}

void Sheet::TellAfter(const LineChange& change, bool insert) const {
  const auto& event = insert ? Events.AfterRowInsert : Events.AfterRowDelete;
  if (change.Told && event) event(change.First, change.Count);
}

bool Sheet::ChangeLines(LineChange change) {
  if (replaying_) return false;
  const bool insert = change.Inserted;
  const LineChange told{.Told = change.Told, .First = change.First, .Count = change.Count};
  return AsStep([&] {
    if (!AskBefore(told, insert)) return false;
    if (insert) change.Lines = grid_.BlankLines(change.Of, change.Count);
    ApplyLines(change, insert);
    RecordLines(std::move(change));
    TellAfter(told, insert);
    return true;
  });
}

bool Sheet::InsertLines(Axis axis, int first, int count) {
  return ChangeLines(
      {.Of = axis, .Inserted = true, .Told = axis == Axis::Rows, .First = first, .Count = count});
}

bool Sheet::DeleteLines(Axis axis, int first, int count) {
  return ChangeLines({.Of = axis, .Told = axis == Axis::Rows, .First = first, .Count = count});
}

bool Sheet::ReplayChange(SheetChange& change, bool undo, bool mayCancel) {
  if (auto* writes = std::get_if<CellWrites>(&change)) {
    const auto swap = [&](CellWrite& write) {
      std::swap(grid_.At(write.Place.Row, write.Place.Col), write.Other);
    };
    if (undo) {
      std::for_each(writes->rbegin(), writes->rend(), swap);
    } else {
      std::for_each(writes->begin(), writes->end(), swap);
    }
    return true;
  }
  auto& lines = std::get<LineChange>(change);
  const bool insert = lines.Inserted != undo;
  if (!AskBefore(lines, insert) && mayCancel) return false;
  ApplyLines(lines, insert);
  TellAfter(lines, insert);
  return true;
}

bool Sheet::Replay(SheetStep& step, bool undo) {
  const auto count = step.Changes.size();
  const auto change = [&](std::size_t i) -> SheetChange& {
    return step.Changes[undo ? count - 1 - i : i];
  };
  for (std::size_t i = 0; i < count; ++i) {
    if (ReplayChange(change(i), undo, true)) continue;
    while (i-- > 0) ReplayChange(change(i), !undo, false);
    return false;
  }
  return true;
}

bool Sheet::Travel(bool undo) {
  if (inStep_ || replaying_) return false;
  const RaisedFlag replaying(replaying_);
  SheetStep& step = *history_.Next(undo);
  const bool done = Replay(step, undo);
  if (done) {
    Select(undo ? step.Before : step.After);
    history_.Pass(undo);
    Modified = true;
  }
  Refresh(true);
  if (done && Events.Change) Events.Change();
  return done;
}

void Sheet::TakeBack() {
  const RaisedFlag replaying(replaying_);
  for (auto change = step_.Changes.rbegin(); change != step_.Changes.rend(); ++change) {
    // The owner is not asked: it is its own failure, or the command's, that ended the step.
    if (auto* lines = std::get_if<LineChange>(&*change)) lines->Told = false;
    ReplayChange(*change, true, false);
  }
  Select(step_.Before);
  Refresh(true);
}

void Sheet::FinishStep() {
  Modified = true;
  if (Events.Change) Events.Change();
  step_.After = selected_;
  if (!step_.Changes.empty()) history_.Add(std::move(step_));
  Refresh(true);
}

bool Sheet::AsStep(const std::function<bool()>& work) {
  if (inStep_ || replaying_) return work();
  const RaisedFlag inStep(inStep_);
  step_ = {.Before = selected_};
  try {
    const bool done = work();
    done ? FinishStep() : TakeBack();
    step_ = {};
    return done;
  } catch (...) {
    TakeBack();
    step_ = {};
    throw;
  }
}

}  // namespace lomaris

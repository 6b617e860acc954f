#include "spreadsheet/sheet.h"

#include <algorithm>

#include "core/raised_flag.h"
#include "core/text.h"
#include "spreadsheet/cell_checks.h"
#include "spreadsheet/clip_cells.h"
#include "spreadsheet/sheet_queries.h"

namespace lomaris {
namespace {

/// A change of a step by its place in the order in which the step is undone, or else redone.
SheetChange& ChangeAt(SheetStep& step, std::size_t place, bool undo) {
  return step.Changes[undo ? step.Changes.size() - 1 - place : place];
}

/// Raises an event of an owner that has failed already, or has refused.
template <class Event>
void Unanswered(Event&& event) {
  try {
    event();
  } catch (const std::exception&) {  // a failure more tells nobody anything new
  }
}

}  // namespace

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

void Sheet::SetDerivedText(int row, int col, std::string text) {
  Cell& target = grid_.At(row, col);
  if (target.Text == text) return;
  target = {std::move(text)};
  Refresh(false);
}

void Sheet::SetReadOnlyRow(int row, bool readOnly) {
  grid_.SetRowLocked(row, readOnly);
  Refresh(false);
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
               within(selection.ColSel, fixedCols_, Cols()), selection.Whole};
  if (selected_.Whole == Axis::Rows) {
    selected_.Col = fixedCols_;
    selected_.ColSel = std::max(fixedCols_, Cols() - 1);
  } else if (selected_.Whole == Axis::Cols) {
    selected_.Row = fixedRows_;
    selected_.RowSel = std::max(fixedRows_, Rows() - 1);
  }
}

std::string Sheet::Clip() const {
  return ClipText(*this, SelectedArea());
}

void Sheet::SetClip(std::string_view text) {
  const CellArea area = SelectedArea();
  const std::string rows = WithReturns(text);
  CellPlace at{area.Top, area.Left};
  for (ClipCells cells(rows); cells.More() && at.Row <= area.Bottom;) {
    const std::string_view piece = cells.Next();
    if (at.Col <= area.Right) SetTextMatrix(at.Row, at.Col, ClipCells::CellOf(piece));
    at = cells.AtRowEnd() ? CellPlace{at.Row + 1, area.Left} : CellPlace{at.Row, at.Col + 1};
  }
}

void Sheet::CheckLines(const LineChange& change) const {
  if (change.Inserted) {
    grid_.CheckPut(change.Of, change.First, change.Count);
  } else {
    grid_.CheckTake(change.Of, change.First, change.Count);
  }
}

void Sheet::ApplyLines(LineChange& change, bool insert) {
  if (insert) {
    grid_.Put(change.Of, change.First, std::exchange(change.Lines, {}));
  } else {
    change.Lines = grid_.Take(change.Of, change.First, change.Count);
  }
  if (change.Of == Axis::Rows) NumberFrom(change.First);
  Select(selected_);
  if (Events.LinesMoved) Events.LinesMoved(change.Of, change.First, change.Count, insert);
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
    // What can fail does so before the owner has changed its tables.
    CheckLines(change);
    if (insert) change.Lines = grid_.BlankLines(change.Of, change.Count);
    if (!AskBefore(told, insert)) return false;
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

void Sheet::Swap(CellWrites& writes, bool undo) {
  const auto swap = [&](CellWrite& write) {
    std::swap(grid_.At(write.Place.Row, write.Place.Col), write.Other);
  };
  if (undo) {
    std::for_each(writes.rbegin(), writes.rend(), swap);
  } else {
    std::for_each(writes.begin(), writes.end(), swap);
  }
}

bool Sheet::ReplayChange(SheetChange& change, bool undo) {
  if (auto* writes = std::get_if<CellWrites>(&change)) {
    Swap(*writes, undo);
    return true;
  }
  auto& lines = std::get<LineChange>(change);
  const bool insert = lines.Inserted != undo;
  if (!AskBefore(lines, insert)) return false;
  ApplyLines(lines, insert);
  try {
    TellAfter(lines, insert);
  } catch (...) {
    RestoreChange(change, !undo);
    throw;
  }
  return true;
}

/// The owner is told, but neither its refusal nor its failure keeps the sheet from going back.
void Sheet::RestoreChange(SheetChange& change, bool undo) {
  if (auto* writes = std::get_if<CellWrites>(&change)) return Swap(*writes, undo);
  auto& lines = std::get<LineChange>(change);
  const bool insert = lines.Inserted != undo;
  Unanswered([&] { AskBefore(lines, insert); });
  ApplyLines(lines, insert);
  Unanswered([&] { TellAfter(lines, insert); });
}

/// Puts the first `count` changes back that were undone, or else redone.
void Sheet::Restore(SheetStep& step, std::size_t count, bool undone) {
  while (count-- > 0) RestoreChange(ChangeAt(step, count, undone), !undone);
}

bool Sheet::Travel(bool undo) {
  if (inStep_ || replaying_) return false;
  const RaisedFlag replaying(replaying_);
  const Selection selected = selected_;
  const bool modified = Modified;
  SheetStep& step = *history_.Next(undo);
  const std::size_t count = step.Changes.size();
  std::size_t replayed = 0;
  const auto goBack = [&] {
    Restore(step, replayed, undo);
    Select(selected);
    Modified = modified;
    Refresh(true);
  };
  try {
    while (replayed < count && ReplayChange(ChangeAt(step, replayed, undo), undo)) ++replayed;
    if (replayed < count) {
      goBack();
      return false;
    }
    Select(undo ? step.Before : step.After);
    history_.Pass(undo);
    Modified = true;
    Refresh(true);
    if (Events.Change) Events.Change();
  } catch (...) {
    if (replayed == count) history_.Pass(!undo);
    goBack();
    throw;
  }
  return true;
}

void Sheet::TakeBack() {
  const RaisedFlag replaying(replaying_);
  Restore(step_, step_.Changes.size(), false);
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
  const bool modified = Modified;
  step_ = {.Before = selected_};
  try {
    const bool done = work();
    if (done) {
      FinishStep();
    } else {
      TakeBack();
    }
    step_ = {};
    return done;
  } catch (...) {
    TakeBack();
    step_ = {};
    Modified = modified;
    throw;
  }
}

}  // namespace lomaris

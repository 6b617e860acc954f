#include "spreadsheet/cell_grid.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <utility>

#include "core/run_time_error.h"

namespace lomaris {
namespace {

// Far above what an editor shows: only a wrong count gets here.
constexpr std::int64_t kMostStoredCells = 10'000'000;

void Check(bool there, int index) {
  if (there) return;
  throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "cell " + std::to_string(index));
}

std::size_t Checked(int index, int count) {
  Check(index >= 0 && index < count, index);
  return static_cast<std::size_t>(index);
}

int& LineOf(CellPlace& place, Axis axis) {
  return axis == Axis::Rows ? place.Row : place.Col;
}

/// Moves `count` entries from place `first` of `from` into a vector of their own.
template <class T>
std::vector<T> TakeRange(std::vector<T>& from, std::size_t first, std::size_t count) {
  const auto begin = from.begin() + static_cast<std::ptrdiff_t>(first);
  const auto end = begin + static_cast<std::ptrdiff_t>(count);
  std::vector<T> taken(std::make_move_iterator(begin), std::make_move_iterator(end));
  from.erase(begin, end);
  return taken;
}

template <class T>
void PutRange(std::vector<T>& into, std::size_t first, std::vector<T>& range) {
  into.insert(into.begin() + static_cast<std::ptrdiff_t>(first),
              std::make_move_iterator(range.begin()), std::make_move_iterator(range.end()));
}

}  // namespace

std::size_t CellGrid::RowIndex(int row) const {
  return Checked(row, rows_);
}
std::size_t CellGrid::ColIndex(int col) const {
  return Checked(col, cols_);
}
std::size_t CellGrid::Index(int row, int col) const {
  return RowIndex(row) * static_cast<std::size_t>(cols_) + ColIndex(col);
}

CellStyle CellGrid::StyleOf(int row, int col) const {
  Index(row, col);
  const auto own = styles_.find({row, col});
  return own == styles_.end() ? CellStyle{} : own->second;
}

void CellGrid::SetStyle(int row, int col, CellStyle style) {
  Index(row, col);
  if (style == CellStyle{}) {
    styles_.erase({row, col});
  } else {
    styles_.insert_or_assign({row, col}, std::move(style));
  }
}

const Format& CellGrid::FormatOf(int row, int col) const {
  const Format& ofCol = StyleOf(col).Cells;
  if (styles_.empty()) return ofCol;
  const auto own = styles_.find({row, col});
  const bool differs = own != styles_.end() && own->second.Own.Kind != FormatKind::Text;
  return differs ? own->second.Own : ofCol;
}

void CellGrid::CheckPut(Axis axis, int first, int count) const {
  Check(count >= 0 && first >= 0 && first <= Lines(axis), first);
  const std::int64_t across = std::max(1, axis == Axis::Rows ? cols_ : rows_);
  if (across * (std::int64_t{Lines(axis)} + count) > kMostStoredCells) {
    throw RuntimeError(ErrorNumber::OutOfMemory);
  }
}

void CellGrid::CheckTake(Axis axis, int first, int count) const {
  Check(count >= 0 && first >= 0 && first <= Lines(axis) - count, first);
}

CellLines CellGrid::BlankLines(Axis axis, int count) const {
  CheckPut(axis, 0, count);
  CellLines lines{.Count = count};
  const auto size = static_cast<std::size_t>(count);
  const int across = axis == Axis::Rows ? cols_ : rows_;
  lines.Cells.resize(size * static_cast<std::size_t>(across));
  if (axis == Axis::Rows) {
    lines.RowLocks.resize(size);
  } else {
    lines.ColStyles.resize(size);
  }
  return lines;
}

void CellGrid::MoveStyles(Axis axis, int first, int by) {
  std::map<CellPlace, CellStyle> moved;
  for (auto& [place, style] : styles_) {
    CellPlace target = place;
    if (LineOf(target, axis) >= first) LineOf(target, axis) += by;
    moved.emplace_hint(moved.end(), target, std::move(style));
  }
  styles_ = std::move(moved);
}

void CellGrid::TakeCells(Axis axis, int first, CellLines& lines) {
  const auto cols = static_cast<std::size_t>(cols_);
  const auto from = static_cast<std::size_t>(first);
  const auto count = static_cast<std::size_t>(lines.Count);
  if (axis == Axis::Rows) {
    lines.Cells = TakeRange(cells_, from * cols, count * cols);
    return;
  }
  std::vector<Cell> kept;
  kept.reserve(cells_.size());
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const bool taken = i % cols >= from && i % cols < from + count;
    (taken ? lines.Cells : kept).push_back(std::move(cells_[i]));
  }
  cells_ = std::move(kept);
}

CellLines CellGrid::Take(Axis axis, int first, int count) {
  CheckTake(axis, first, count);
  CellLines lines{.Count = count};
  for (auto own = styles_.begin(); own != styles_.end();) {
    CellPlace place = own->first;
    int& line = LineOf(place, axis);
    line -= first;
    const bool taken = line >= 0 && line < count;
    if (taken) lines.Styles.emplace(place, std::move(own->second));
    own = taken ? styles_.erase(own) : std::next(own);
  }
  MoveStyles(axis, first + count, -count);
  TakeCells(axis, first, lines);
  if (axis == Axis::Rows) {
    lines.RowLocks =
        TakeRange(rowLocks_, static_cast<std::size_t>(first), static_cast<std::size_t>(count));
    rows_ -= count;
  } else {
    lines.ColStyles =
        TakeRange(colStyles_, static_cast<std::size_t>(first), static_cast<std::size_t>(count));
    cols_ -= count;
  }
  return lines;
}

void CellGrid::PutCells(Axis axis, int first, CellLines& lines) {
  const auto cols = static_cast<std::size_t>(cols_);
  const auto at = static_cast<std::size_t>(first);
  if (axis == Axis::Rows) {
    PutRange(cells_, at * cols, lines.Cells);
    return;
  }
  const auto count = static_cast<std::ptrdiff_t>(lines.Count);
  std::vector<Cell> wider;
  wider.reserve(cells_.size() + lines.Cells.size());
  auto from = lines.Cells.begin();
  for (std::size_t row = 0; row < static_cast<std::size_t>(rows_); ++row) {
    const auto old =
        std::make_move_iterator(cells_.begin() + static_cast<std::ptrdiff_t>(row * cols));
    const auto split = old + static_cast<std::ptrdiff_t>(at);
    wider.insert(wider.end(), old, split);
    wider.insert(wider.end(), std::make_move_iterator(from), std::make_move_iterator(from + count));
    wider.insert(wider.end(), split, old + static_cast<std::ptrdiff_t>(cols));
    from += count;
  }
  cells_ = std::move(wider);
}

void CellGrid::Put(Axis axis, int first, CellLines lines) {
  CheckPut(axis, first, lines.Count);
  MoveStyles(axis, first, lines.Count);
  PutCells(axis, first, lines);
  for (auto& [place, style] : lines.Styles) {
    CellPlace target = place;
    LineOf(target, axis) += first;
    styles_.insert_or_assign(target, std::move(style));
  }
  if (axis == Axis::Rows) {
    PutRange(rowLocks_, static_cast<std::size_t>(first), lines.RowLocks);
    rows_ += lines.Count;
  } else {
    PutRange(colStyles_, static_cast<std::size_t>(first), lines.ColStyles);
    cols_ += lines.Count;
  }
}

}  // namespace lomaris

#include "spreadsheet/sheet_history.h"

#include <utility>

namespace lomaris {
namespace {

std::size_t BytesOf(const Cell& cell) {
  const std::size_t inPlace = std::string().capacity();
  return cell.Text.capacity() > inPlace ? cell.Text.capacity() : 0;
}

std::size_t BytesOf(const SheetChange& change) {
  std::size_t bytes = 0;
  if (const auto* writes = std::get_if<CellWrites>(&change)) {
    bytes = writes->capacity() * sizeof(CellWrite);
    for (const CellWrite& write : *writes) bytes += BytesOf(write.Other);
  } else {
    const CellLines& lines = std::get<LineChange>(change).Lines;
    bytes = lines.Cells.capacity() * sizeof(Cell) + lines.Styles.size() * sizeof(CellStyle) * 2;
    for (const Cell& cell : lines.Cells) bytes += BytesOf(cell);
  }
  return bytes;
}

std::size_t BytesOf(const SheetStep& step) {
  std::size_t bytes = sizeof(SheetStep);
  for (const SheetChange& change : step.Changes) bytes += BytesOf(change);
  return bytes;
}

}  // namespace

void SheetHistory::Add(SheetStep step) {
  for (; steps_.size() > done_; steps_.pop_back()) bytes_ -= steps_.back().Bytes;
  step.Bytes = BytesOf(step);
  bytes_ += step.Bytes;
  steps_.push_back(std::move(step));
  for (; steps_.size() > 1 && (steps_.size() > kMostSteps || bytes_ > kMostBytes);
       steps_.pop_front()) {
    bytes_ -= steps_.front().Bytes;
  }
  done_ = steps_.size();
}

void SheetHistory::Clear() {
  steps_.clear();
  done_ = bytes_ = 0;
}

SheetStep* SheetHistory::Next(bool undo) {
  if (!Has(undo)) return nullptr;
  return &steps_[undo ? done_ - 1 : done_];
}

void SheetHistory::Pass(bool undo) {
  SheetStep& step = *Next(undo);
  bytes_ -= step.Bytes;
  step.Bytes = BytesOf(step);
  bytes_ += step.Bytes;
  if (undo) {
    --done_;
  } else {
    ++done_;
  }
}

}  // namespace lomaris

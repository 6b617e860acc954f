#pragma once

#include <cstddef>
#include <deque>
#include <variant>
#include <vector>

#include "spreadsheet/cell_grid.h"

namespace lomaris {

/// A cell that was written, with what is not in it now: undoing and redoing are both a swap.
struct CellWrite {
  CellPlace Place = {};
  Cell Other = {};
};
using CellWrites = std::vector<CellWrite>;

/// Lines that came or went. While they are out of the grid, they are kept here.
struct LineChange {
  Axis Of = Axis::Rows;
  bool Inserted = false;
  bool Told = false;  ///< the owner was told by the row events, and will be when it is undone
  int First = 0;
  int Count = 0;
  CellLines Lines = {};
};

using SheetChange = std::variant<CellWrites, LineChange>;

/// What one command or edit did, in order.
struct SheetStep {
  std::vector<SheetChange> Changes = {};
  Selection Before = {};
  Selection After = {};
  std::size_t Bytes = 0;  ///< memory that the step holds
};

/// The steps that can be undone and redone. Bounded: the oldest ones are forgotten beyond
/// `kMostSteps` steps or `kMostBytes` of memory, but for the latest step, which is always kept.
class SheetHistory {
 public:
  static constexpr std::size_t kMostSteps = 200;
  static constexpr std::size_t kMostBytes = std::size_t{128} << 20;

  /// Forgets what could have been redone.
  void Add(SheetStep step);

  void Clear();

  /// The step to undo or to redo next; null when there is none.
  SheetStep* Next(bool undo);
  bool Has(bool undo) const { return undo ? done_ > 0 : done_ < steps_.size(); }

  /// The step that `Next` gave has been undone or redone.
  void Pass(bool undo);

 private:
  std::deque<SheetStep> steps_;
  std::size_t done_ = 0;
  std::size_t bytes_ = 0;
};

}  // namespace lomaris

#pragma once

#include <algorithm>
#include <functional>
#include <utility>

#include "core/ports/clock.h"

namespace lomaris {

/// A timer without an event loop: whoever waits asks it on each turn whether its tick is due. It is
/// off while its tick works, so that a box shown by the tick stops it; the interval counts from the
/// end of one tick to the start of the next.
class PollTimer {
 public:
  /// `tick` returns the interval from then on, in ms; 0 leaves it as it is. `wanted` is asked on
  /// each turn: an interval below the present one holds at once, for the tick that is being waited
  /// for.
  PollTimer(Clock& clock, std::function<int()> tick, std::function<int()> wanted)
      : clock_(clock), tick_(std::move(tick)), wanted_(std::move(wanted)) {}

  void Start(int interval) {
    interval_ = interval;
    enabled_ = true;
    since_ = clock_.Seconds();
  }
  void Stop() { enabled_ = false; }

  void Turn() {
    if (!enabled_) return;
    const int interval = std::min(interval_, wanted_());
    if (clock_.Seconds() - since_ < interval / 1000.0) return;
    enabled_ = false;
    if (const int next = tick_(); next > 0) interval_ = next;
    Start(interval_);
  }

 private:
  Clock& clock_;
  std::function<int()> tick_;
  std::function<int()> wanted_;
  int interval_ = 0;
  bool enabled_ = false;
  double since_ = 0;
};

}  // namespace lomaris

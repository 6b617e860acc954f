#pragma once

#include <functional>
#include <utility>

#include "core/ports/clock.h"

namespace lomaris {

/// A timer without an event loop: whoever waits asks it on each turn whether its tick is due. It is
/// off while its tick works, so that a box shown by the tick stops it; the interval counts from the
/// end of one tick to the start of the next.
class PollTimer {
 public:
  /// `tick` returns the interval from then on, in ms; 0 leaves it as it is.
  PollTimer(Clock& clock, std::function<int()> tick) : clock_(clock), tick_(std::move(tick)) {}

  void Start(int interval) {
    interval_ = interval;
    enabled_ = true;
    since_ = clock_.Seconds();
  }
  void Stop() { enabled_ = false; }

  void Turn() {
    if (!enabled_ || clock_.Seconds() - since_ < interval_ / 1000.0) return;
    enabled_ = false;
    if (const int interval = tick_(); interval > 0) interval_ = interval;
    Start(interval_);
  }

 private:
  Clock& clock_;
  std::function<int()> tick_;
  int interval_ = 0;
  bool enabled_ = false;
  double since_ = 0;
};

}  // namespace lomaris

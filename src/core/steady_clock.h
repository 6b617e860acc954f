#pragma once

#include <chrono>
#include <thread>

#include "core/ports/clock.h"

namespace lomaris {

/// The computer's clock.
class SteadyClock : public Clock {
 public:
  double Seconds() override {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
  }
  void Sleep(int milliseconds) override {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  }
};

}  // namespace lomaris

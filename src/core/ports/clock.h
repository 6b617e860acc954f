#pragma once

namespace lomaris {

/// Time that passes, for what waits and what measures.
class Clock {
 public:
  virtual ~Clock() = default;

  /// Seconds with their fraction since some moment. They run steadily: neither midnight nor a clock
  /// that is set moves them.
  virtual double Seconds() = 0;

  virtual void Sleep(int milliseconds) = 0;
};

}  // namespace lomaris

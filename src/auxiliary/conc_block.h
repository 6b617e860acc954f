#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>

#include "core/run_time_error.h"

namespace lomaris {

/// Values of variables at segments over time steps, each counted from 1, in one block of memory in
/// which the variable runs fastest and the time step slowest. It can be as large as memory is, so
/// it moves and never copies itself. An index outside its bounds is run-time error 9.
class ConcBlock {
 public:
  ConcBlock() = default;

  /// All values 0; memory is taken where values are written only. Error 9 for a count below 0, 7
  /// for a block that no memory holds.
  ConcBlock(std::int32_t vars, std::int32_t segments, std::int32_t times)
      : vars_(CheckedCount(vars)), segments_(CheckedCount(segments)), times_(CheckedCount(times)) {
    const auto step = static_cast<std::size_t>(vars_) * static_cast<std::size_t>(segments_);
    const auto stepBytes = static_cast<std::size_t>(times_) * sizeof(float);
    if (step == 0 || stepBytes == 0) return;
    values_.reset(static_cast<float*>(std::calloc(step, stepBytes)));  // which checks the product
    if (values_ == nullptr) throw std::bad_alloc();
  }

  std::int32_t Vars() const { return vars_; }
  std::int32_t Segments() const { return segments_; }
  std::int32_t Times() const { return times_; }

  float& operator()(std::int32_t var, std::int32_t segment, std::int32_t time) {
    return values_.get()[Place(var, segment, time)];
  }
  float operator()(std::int32_t var, std::int32_t segment, std::int32_t time) const {
    return values_.get()[Place(var, segment, time)];
  }

  /// All values in the order of memory, which is that of the file.
  float* Data() { return values_.get(); }
  const float* Data() const { return values_.get(); }
  std::size_t Size() const { return StepSize() * static_cast<std::size_t>(times_); }

  /// Values of one time step.
  std::size_t StepSize() const {
    return static_cast<std::size_t>(vars_) * static_cast<std::size_t>(segments_);
  }

 private:
  struct Free {
    void operator()(float* values) const { std::free(values); }
  };

  static RuntimeError OutOfBounds(std::int32_t index, std::int32_t upper) {
    return RuntimeError(ErrorNumber::SubscriptOutOfRange,
                        std::to_string(index) + " is not within 1 to " + std::to_string(upper));
  }

  static std::int32_t CheckedCount(std::int32_t count) {
    if (count < 0) throw OutOfBounds(count, 0);
    return count;
  }

  static std::size_t Offset(std::int32_t index, std::int32_t upper) {
    if (index < 1 || index > upper) throw OutOfBounds(index, upper);
    return static_cast<std::size_t>(index - 1);
  }

  std::size_t Place(std::int32_t var, std::int32_t segment, std::int32_t time) const {
    const std::size_t row = Offset(time, times_) * static_cast<std::size_t>(segments_);
    return (row + Offset(segment, segments_)) * static_cast<std::size_t>(vars_) +
           Offset(var, vars_);
  }

  std::int32_t vars_ = 0;
  std::int32_t segments_ = 0;
  std::int32_t times_ = 0;
  std::unique_ptr<float, Free> values_;
};

}  // namespace lomaris

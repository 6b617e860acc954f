#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/run_time_error.h"

namespace lomaris {

/// The series of one cross section: a two-dimensional array, both indices from 1, in one block of
/// memory in which the slot runs fastest. Its number of time steps can change, its width cannot. An
/// index outside its bounds is run-time error 9.
class ValueBlock {
 public:
  ValueBlock() = default;

  /// All values 0.
  ValueBlock(std::int32_t slots, std::int32_t times) : slots_(slots) { ResizeTimes(times); }

  std::int32_t Slots() const { return slots_; }
  std::int32_t Times() const { return times_; }

  float& operator()(std::int32_t slot, std::int32_t time) {
    return Row(time)[CheckedSlot(slot) - 1];
  }
  float operator()(std::int32_t slot, std::int32_t time) const {
    return Row(time)[CheckedSlot(slot) - 1];
  }

  /// The values of one time step: slot 1 first, `Slots()` of them.
  float* Row(std::int32_t time) { return values_.data() + Start(time); }
  const float* Row(std::int32_t time) const { return values_.data() + Start(time); }

  /// What lies within the new bounds keeps its value, new steps are 0.
  void ResizeTimes(std::int32_t times) {
    if (times < 0) throw OutOfBounds(times);
    values_.resize(static_cast<std::size_t>(times) * static_cast<std::size_t>(slots_));
    times_ = times;
  }

  /// Gives back memory beyond what is used.
  void ShrinkToFit() { values_.shrink_to_fit(); }

  bool operator==(const ValueBlock&) const = default;

 private:
  std::size_t Start(std::int32_t time) const {
    if (time < 1 || time > times_) throw OutOfBounds(time);
    return static_cast<std::size_t>(time - 1) * static_cast<std::size_t>(slots_);
  }

  std::int32_t CheckedSlot(std::int32_t slot) const {
    if (slot < 1 || slot > slots_) throw OutOfBounds(slot);
    return slot;
  }

  RuntimeError OutOfBounds(std::int32_t index) const {
    return RuntimeError(ErrorNumber::SubscriptOutOfRange,
                        std::to_string(index) + " is not within a series of " +
                            std::to_string(times_) + " steps of " + std::to_string(slots_));
  }

  std::int32_t slots_ = 0;
  std::int32_t times_ = 0;
  std::vector<float> values_;
};

}  // namespace lomaris

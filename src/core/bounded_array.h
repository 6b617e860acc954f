#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/run_time_error.h"

namespace lomaris {

/// An array counted as the model files count, from 1 unless said otherwise. An index outside its
/// bounds is run-time error 9, so a wrong number in a file costs a message and nothing else.
template <class T>
class BoundedArray {
 public:
  /// Empty: upper bound one below the lower one.
  BoundedArray() = default;

  /// Default values at `lower`..`upper`, both inclusive. Error 9 when upper is below lower - 1.
  BoundedArray(std::int64_t lower, std::int64_t upper) : lower_(lower) { Resize(upper); }

  std::int64_t LowerBound() const { return lower_; }
  std::int64_t UpperBound() const { return lower_ + Count() - 1; }
  std::int64_t Count() const { return static_cast<std::int64_t>(values_.size()); }

  /// Moves the upper bound; what lies within the new bounds keeps its content.
  void Resize(std::int64_t upper) {
    if (upper < lower_ - 1) throw OutOfBounds(upper);
    values_.resize(static_cast<std::size_t>(upper - lower_ + 1));
  }

  decltype(auto) operator[](std::int64_t index) { return values_[Place(index)]; }
  decltype(auto) operator[](std::int64_t index) const { return values_[Place(index)]; }

  auto begin() { return values_.begin(); }
  auto end() { return values_.end(); }
  auto begin() const { return values_.begin(); }
  auto end() const { return values_.end(); }

  bool operator==(const BoundedArray&) const = default;

 private:
  std::size_t Place(std::int64_t index) const {
    if (index < lower_ || index > UpperBound()) throw OutOfBounds(index);
    return static_cast<std::size_t>(index - lower_);
  }

  RuntimeError OutOfBounds(std::int64_t index) const {
    return RuntimeError(ErrorNumber::SubscriptOutOfRange,
                        std::to_string(index) + " is not within " + std::to_string(lower_) +
                            " to " + std::to_string(UpperBound()));
  }

  std::int64_t lower_ = 1;
  std::vector<T> values_;
};

}  // namespace lomaris

#pragma once

#include <utility>

namespace lomaris {

/// Sets a flag for as long as it lives, and then puts back what it was.
class RaisedFlag {
 public:
  explicit RaisedFlag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~RaisedFlag() { flag_ = before_; }
  RaisedFlag(const RaisedFlag&) = delete;
  RaisedFlag& operator=(const RaisedFlag&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace lomaris

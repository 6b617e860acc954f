#pragma once

#include <utility>

namespace lomaris {

/// While it lives, what changes in a window is the editor's own doing and no edit of the user's.
class OwnChange {
 public:
  explicit OwnChange(bool& showing) : showing_(showing), before_(std::exchange(showing, true)) {}
  ~OwnChange() { showing_ = before_; }
  OwnChange(const OwnChange&) = delete;
  OwnChange& operator=(const OwnChange&) = delete;

 private:
  bool& showing_;
  bool before_;
};

}  // namespace lomaris

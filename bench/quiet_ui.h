#pragma once

#include "core/unattended_ui.h"

namespace lomaris {

/// Boxes are answered at once and forgotten. The first failures of a routine are ignored, later
/// ones leave it.
class QuietUi : public UnattendedUi {
 public:
  explicit QuietUi(int ignored = 0) : ignored_(ignored) {}

  Answer ShowMessage(const MessageBox& box) override {
    ++boxes_;
    if (box.BoxButtons != Buttons::AbortRetryIgnore) return Answer::Ok;
    return boxes_ <= ignored_ ? Answer::Ignore : Answer::Abort;
  }

  int Boxes() const { return boxes_; }

 private:
  int ignored_;
  int boxes_ = 0;
};

}  // namespace lomaris

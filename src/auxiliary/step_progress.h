#pragma once

#include <cstdint>

#include "auxiliary/aux_window.h"
#include "core/ports/ui.h"

namespace lomaris {

/// The window while a file is read or written: busy pointer and bar, and for a load its main tab
/// locked. All of it is taken back at the end of the object's life.
class WindowAtWork {
 public:
  enum class Tab { Usable, Locked };

  WindowAtWork(AuxWindow* window, Tab tab);
  ~WindowAtWork();
  WindowAtWork(const WindowAtWork&) = delete;
  WindowAtWork& operator=(const WindowAtWork&) = delete;

 private:
  AuxWindow* window_;
  Tab tab_;
};

/// Shows how far a loop has come, 20 times a second and at its first step: a bar that moved at
/// every step would cost more than the steps.
class StepProgress {
 public:
  /// `total` steps make 100 %. A window of none shows nothing. A load lets events run each time, by
  /// `events`. A save does not: an edit would change the record under the writer.
  StepProgress(AuxWindow* window, std::int64_t total, Ui* events = nullptr)
      : window_(window), events_(events), total_(total) {}

  /// After step `count`. False when the user has given up the window.
  bool Step(std::int64_t count) {
    if (window_ == nullptr) return true;
    if (count == 1 || count % kStepsPerLook == 0) Look(count);
    return !window_->FormCancelled();
  }

 private:
  static constexpr std::int64_t kStepsPerLook = 32;  ///< even to look at the clock takes its time

  void Look(std::int64_t count);

  AuxWindow* window_;
  Ui* events_;
  std::int64_t total_;
  double shownAt_ = 0;  ///< s
};

}  // namespace lomaris

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ports/ui.h"

namespace lomaris {

/// Nobody at the screen: boxes are answered at once and forgotten. The first failures of a routine
/// are ignored, later ones leave it.
class QuietUi : public Ui {
 public:
  explicit QuietUi(int ignored = 0) : ignored_(ignored) {}

  Answer ShowMessage(const MessageBox& box) override {
    ++boxes_;
    if (box.BoxButtons != Buttons::AbortRetryIgnore) return Answer::Ok;
    return boxes_ <= ignored_ ? Answer::Ignore : Answer::Abort;
  }

  int Boxes() const { return boxes_; }

  std::string AskText(const InputBox&) override { return {}; }
  std::vector<std::string> AskFile(const FileDialog&) override { return {}; }
  std::optional<std::size_t> PickFromList(const std::string&,
                                          const std::vector<std::string>&) override {
    return std::nullopt;
  }
  void SetBusyPointer(bool) override {}
  void ResetPointers() override {}
  void DoEvents() override {}
  void Beep() override {}
  void SetClipboardText(const std::string&) override {}
  std::string ClipboardText() override { return {}; }

 private:
  int ignored_;
  int boxes_ = 0;
};

}  // namespace lomaris

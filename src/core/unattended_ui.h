#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ports/ui.h"

namespace lomaris {

/// Nobody sits before the program: nothing is shown, and each question has the answer that gives
/// up.
class UnattendedUi : public Ui {
 public:
  Answer ShowMessage(const MessageBox& box) override {
    switch (box.BoxButtons) {
      case Buttons::Ok:
        return Answer::Ok;
      case Buttons::YesNo:
        return Answer::No;
      case Buttons::AbortRetryIgnore:
        return Answer::Abort;
      default:
        return Answer::Cancel;
    }
  }
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
};

}  // namespace lomaris

#pragma once

#include <algorithm>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/ports/settings.h"
#include "core/ports/ui.h"

namespace lomaris {

/// A person who answers as the test has written down beforehand, and remembers all that was shown.
/// A box with more than one button, or a dialog, without an answer left fails the test.
class ScriptedUi : public Ui {
 public:
  std::deque<Answer> Answers;                    ///< to boxes with more than one button
  std::deque<std::string> Texts;                 ///< to input boxes
  std::deque<std::vector<std::string>> Files;    ///< to file dialogs
  std::deque<std::optional<std::size_t>> Picks;  ///< to lists

  std::vector<MessageBox> Messages;
  std::vector<InputBox> InputBoxes;
  std::vector<FileDialog> FileDialogs;
  std::vector<std::string> PickCaptions;
  std::string Clipboard;
  int BusyDepth = 0;
  int Beeps = 0;

  /// Text of the last box; empty when there was none.
  std::string LastMessage() const { return Messages.empty() ? "" : Messages.back().Text; }

  Answer ShowMessage(const MessageBox& box) override;
  std::string AskText(const InputBox& box) override;
  std::vector<std::string> AskFile(const FileDialog& dialog) override;
  std::optional<std::size_t> PickFromList(const std::string& caption,
                                          const std::vector<std::string>& rows) override;
  void SetBusyPointer(bool busy) override { BusyDepth = std::max(0, BusyDepth + (busy ? 1 : -1)); }
  void ResetPointers() override { BusyDepth = 0; }
  void DoEvents() override {}
  void Beep() override { ++Beeps; }
  void SetClipboardText(const std::string& text) override { Clipboard = text; }
  std::string ClipboardText() override { return Clipboard; }
};

/// Settings that live in memory.
class FakeSettings : public Settings {
 public:
  std::map<std::pair<std::string, std::string>, std::string> Values;

  std::string Value(const std::string& section, const std::string& key,
                    const std::string& defaultValue) const override {
    const auto found = Values.find({section, key});
    return found == Values.end() ? defaultValue : found->second;
  }
  void SetValue(const std::string& section, const std::string& key,
                const std::string& value) override {
    Values[{section, key}] = value;
  }
};

}  // namespace lomaris

#pragma once

#include <QPointer>
#include <QWidget>

#include "core/ports/ui.h"

namespace lomaris {

/// The person at the screen, asked through Qt's dialogs. Each dialog belongs to the window that is
/// active when it opens.
class QtUi : public Ui {
 public:
  Answer ShowMessage(const MessageBox& box) override;
  std::string AskText(const InputBox& box) override;
  std::vector<std::string> AskFile(const FileDialog& dialog) override;
  std::optional<std::size_t> PickFromList(const std::string& caption,
                                          const std::vector<std::string>& rows) override;
  void SetBusyPointer(bool busy) override;
  void ResetPointers() override;
  void DoEvents() override;
  void Beep() override;
  void SetClipboardText(const std::string& text) override;
  std::string ClipboardText() override;

 private:
  /// The active window; between two dialogs in a row, when none is active, the last one that was.
  QWidget* DialogParent();

  QPointer<QWidget> lastActive_;
};

}  // namespace lomaris

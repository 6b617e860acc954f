#pragma once

#include <optional>
#include <string>
#include <vector>

namespace lomaris {

enum class Icon { None, Information, Question, Warning, Critical };

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, AbortRetryIgnore };

/// The numbers are the platform's; `ReportError` hands 3 to 5 on as they are.
enum class Answer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

/// A modal message box. Default values make a plain box with OK.
struct MessageBox {
  std::string Text = {};
  std::string Title = {};  ///< empty: the application's title
  Icon BoxIcon = Icon::None;
  Buttons BoxButtons = Buttons::Ok;
  std::optional<Answer> DefaultAnswer = {};  ///< none: the first button
};

/// A modal box that asks for one line of text.
struct InputBox {
  std::string Prompt = {};
  std::string Title = {};
  std::string Proposal = {};  ///< text that stands in the field at first
};

/// Flags of a file dialog, in the platform's numbering.
enum FileDialogFlag : unsigned {
  kOverwritePrompt = 0x2,
  kAllowMultiSelect = 0x200,
  kExtensionDifferent = 0x400,
  kPathMustExist = 0x800,
  kFileMustExist = 0x1000,
};

/// A modal dialog for opening or saving a file.
struct FileDialog {
  std::string Title = {};
  std::string Filter = {};            ///< "Project (*.prj)|*.prj|All files (*.*)|*.*"
  std::string DefaultExtension = {};  ///< added to a name that has none; without its dot
  std::string InitialDirectory = {};
  std::string FileName = {};  ///< name or pattern that stands in the field at first
  unsigned Flags = 0;         ///< of FileDialogFlag
  bool SaveMode = false;
};

/// What the ground floor asks of the person at the screen.
class Ui {
 public:
  virtual ~Ui() = default;

  virtual Answer ShowMessage(const MessageBox& box) = 0;

  /// The text entered; empty when cancelled.
  virtual std::string AskText(const InputBox& box) = 0;

  /// Whole paths of the chosen files, empty when cancelled. The current directory moves to the
  /// folder of the answer.
  virtual std::vector<std::string> AskFile(const FileDialog& dialog) = 0;

  /// Place of the chosen row, counted from 0; nothing when cancelled. Rows may hold tabs.
  virtual std::optional<std::size_t> PickFromList(const std::string& caption,
                                                  const std::vector<std::string>& rows) = 0;

  virtual void SetBusyPointer(bool busy) = 0;

  /// Resets the busy pointer on the screen and on every window, however often it was set.
  virtual void ResetPointers() = 0;

  /// One pass of the event loop.
  virtual void DoEvents() = 0;

  virtual void Beep() = 0;

  virtual void SetClipboardText(const std::string& text) = 0;
  virtual std::string ClipboardText() = 0;
};

/// Shows the hourglass for as long as it lives, after one pass of the event loop.
class BusyPointer {
 public:
  explicit BusyPointer(Ui& ui) : ui_(ui) {
    ui_.SetBusyPointer(true);
    ui_.DoEvents();
  }
  ~BusyPointer() { ui_.SetBusyPointer(false); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  Ui& ui_;
};

}  // namespace lomaris

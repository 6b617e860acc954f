#include "run/model_link.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "core/files.h"
#include "core/run_time_error.h"
#include "run/kept_directory.h"

namespace lomaris {
namespace {

constexpr std::int32_t kLongestBox = 86400;  // s; a day

/// The blanks of a text field: the model has not written its number yet.
constexpr std::int32_t kNoTypeYet = 0x20202020;

constexpr std::int32_t kAbortType = -1;

void TakeMessage(const ModelLink& link) {
  link.Monitor.AddMessage(link.Model.ReadUntrimmedText(kUpdateRecord));
  link.Reply.Write(kDone);
  link.Model.ClearCommand();
}

std::string_view ShowModelBox(const ModelLink& link, const std::string& text,
                              const std::string& title, std::int32_t type) {
  if (type > 0) {
    link.Monitor.ShowTimedDialog(title, text, std::min(type, kLongestBox));
    return kCancel;
  }
  link.Monitor.HideSplash();
  if (type == kAbortType) link.State.Abort = true;
  const Answer answer =
      link.Screen.ShowMessage({.Text = text,
                               .Title = title,
                               .BoxIcon = Icon::Information,
                               .BoxButtons = type == kAbortType ? Buttons::Ok : Buttons::OkCancel});
  return type == kAbortType || answer == Answer::Ok ? kOk : kCancel;
}

/// The command stays: that is how its repeat on the next ticks is known.
void TakeMsgBox(const ModelLink& link) {
  const std::string text = link.Model.ReadText(kUpdateRecord);
  const std::string title = link.Model.ReadText(kText2Record);
  const std::int32_t type = link.Model.ReadType();
  if (type == kNoTypeYet) throw RuntimeError(ErrorNumber::TypeMismatch);
  if (text == link.State.LastMessage) return;
  link.State.LastMessage = text;
  link.Monitor.AddMessage("Message: " + text);
  link.Reply.Write(ShowModelBox(link, text, title, type));
}

void TakeQuestion(const ModelLink& link) {
  const std::string text = link.Model.ReadText(kUpdateRecord);
  const std::string title = link.Model.ReadText(kText2Record);
  link.State.LastMessage = text;
  link.Monitor.HideSplash();
  const Answer answer = link.Screen.ShowMessage({.Text = text,
                                                 .Title = title,
                                                 .BoxIcon = Icon::Question,
                                                 .BoxButtons = Buttons::YesNoCancel});
  link.Reply.Write(answer == Answer::Yes ? kYes : answer == Answer::No ? kNo : kCancel);
  link.Model.ClearCommand();
}

/// The model cannot tell an empty text from a cancelled question.
std::string AnswerWith(const std::string& text) {
  return text.empty() ? std::string(kCancel) : std::string(kOk) + text;
}

void TakeInputBox(const ModelLink& link) {
  const InputBox box{.Prompt = link.Model.ReadText(kUpdateRecord),
                     .Title = link.Model.ReadText(kText2Record),
                     .Proposal = link.Model.ReadText(kText3Record)};
  link.State.LastMessage = box.Prompt;
  link.Monitor.HideSplash();
  link.Reply.Write(AnswerWith(link.Screen.AskText(box)));
  link.Model.ClearCommand();
}

/// A path; empty when the user wants none. One that the model would get only in part is asked for
/// again.
std::string AskModelFile(Ui& ui, const FileDialog& dialog) {
  constexpr std::size_t kLongestPath = kWordWidth - kOk.size();
  for (;;) {
    const std::vector<std::string> chosen = ui.AskFile(dialog);
    if (chosen.empty() || chosen.front().size() <= kLongestPath) {
      return chosen.empty() ? std::string() : chosen.front();
    }
    ui.ShowMessage({.Text = fmt::format("The model takes a path of {} bytes at most, and this "
                                        "one is longer: {}",
                                        kLongestPath, chosen.front()),
                    .Title = dialog.Title,
                    .BoxIcon = Icon::Warning});
  }
}

/// The one command that neither is cleared nor knows its repeat: the model itself moves on. Only
/// while it has not even taken up the answer it is not asked again.
void TakeOpenFile(const ModelLink& link) {
  const FileDialog dialog{.Title = link.Model.ReadText(kUpdateRecord),
                          .DefaultExtension = link.Model.ReadText(kText2Record),
                          .InitialDirectory = FolderOf(link.Model.Path()),
                          .FileName = link.Model.ReadText(kText3Record),
                          .Flags = kFileMustExist};
  std::string& answer = link.State.FileAnswer;
  const std::string question = dialog.Title + '\n' + dialog.FileName;
  if (std::exchange(link.State.FileQuestion, question) == question && link.Reply.Holds(answer)) {
    return;
  }
  link.Monitor.HideSplash();
  const KeptDirectory users;  // the dialog moves the current directory
  answer = AnswerWith(AskModelFile(link.Screen, dialog));
  link.Reply.WriteBytes(answer);
}

struct CommandEntry {
  std::string_view Word;
  void (*Take)(const ModelLink& link);
};

constexpr std::array kCommands = {
    CommandEntry{"UPDATE", TakeUpdate},     CommandEntry{"MESSAGE", TakeMessage},
    CommandEntry{"MSGBOX", TakeMsgBox},     CommandEntry{"QUESTION", TakeQuestion},
    CommandEntry{"INPUTBOX", TakeInputBox}, CommandEntry{"OPENFILE", TakeOpenFile},
};

/// False: the file is not ready yet.
bool OpenModelFile(const ModelLink& link) {
  if (link.Model.IsOpen()) return true;
  const bool ready = link.Model.Open();
  // What was asked before the model listened is dropped.
  if (!std::exchange(link.State.FileSeen, true)) link.Monitor.ResetCancel();
  return ready;
}

void TakeTick(const ModelLink& link) {
  if (!link.Model.Exists() || !OpenModelFile(link)) return;
  link.Model.ReadHead();
  if (link.Monitor.CancelRequested()) link.Reply.Write(kCancel);  // on each tick until the end
  const auto entry = std::find_if(kCommands.begin(), kCommands.end(), [&](const CommandEntry& e) {
    return e.Word == link.Model.Command();
  });
  if (entry != kCommands.end()) entry->Take(link);
}

}  // namespace

void PollModel(const ModelLink& link) {
  try {
    TakeTick(link);
  } catch (const RuntimeError&) {
    return;  // the model is at work on its file
  }
}

}  // namespace lomaris

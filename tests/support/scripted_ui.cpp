#include "support/scripted_ui.h"

#include <gtest/gtest.h>

namespace lomaris {
namespace {

template <class T>
T Next(std::deque<T>& script, T otherwise, const std::string& question) {
  if (script.empty()) {
    ADD_FAILURE() << "no answer is scripted to: " << question;
    return otherwise;
  }
  T answer = std::move(script.front());
  script.pop_front();
  return answer;
}

}  // namespace

Answer ScriptedUi::ShowMessage(const MessageBox& box) {
  Messages.push_back(box);
  if (box.BoxButtons == Buttons::Ok) return Answer::Ok;
  const bool trap = box.BoxButtons == Buttons::AbortRetryIgnore;
  return Next(Answers, trap ? Answer::Abort : Answer::Cancel, box.Text);
}

std::string ScriptedUi::AskText(const InputBox& box) {
  InputBoxes.push_back(box);
  return Next(Texts, {}, box.Prompt);
}

std::vector<std::string> ScriptedUi::AskFile(const FileDialog& dialog) {
  FileDialogs.push_back(dialog);
  return Next(Files, {}, dialog.Title);
}

std::optional<std::size_t> ScriptedUi::PickFromList(const std::string& caption,
                                                    const std::vector<std::string>&) {
  PickCaptions.push_back(caption);
  return Next(Picks, {}, caption);
}

}  // namespace lomaris

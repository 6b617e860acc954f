#include "core/validated.h"

#include <array>

#include "core/dates.h"
#include "core/files.h"
#include "core/text.h"

namespace lomaris {
namespace {

constexpr std::array<std::string_view, 3> kMasks = {"mm/dd/yy", "mm/dd/yy hh:mm", "hh:mm"};

bool ValidatedDate(std::string& text, std::string_view mask, Ui& ui) {
  const std::optional<ModelDateTime> date = ParseDate(text);
  if (!date) {
    ui.Beep();
    ui.ShowMessage({.Text = "Invalid date/time entered: " + text, .Title = "Error"});
    return false;
  }
  text = FormatDate(*date, mask);
  return true;
}

bool ValidatedFile(const std::string& text, Ui& ui, const std::string& besideFile) {
  const std::string_view name = Trim(text);
  if (name.empty() || name.front() == '(' || FindFile(name, besideFile)) return true;
  return ui.ShowMessage({.Text = "The file you specified (" + text +
                                 ") does not exist; do you want to create it?\r\n\r\n"
                                 "If you select 'No', you can respecify the file.",
                         .Title = "Warning",
                         .BoxIcon = Icon::Warning,
                         .BoxButtons = Buttons::YesNo,
                         .DefaultAnswer = Answer::No}) == Answer::Yes;
}

}  // namespace

bool Validated(std::string& text, FieldKind kind, Ui& ui, const std::string& besideFile) {
  const auto place = static_cast<std::size_t>(kind);
  if (place < kMasks.size()) return ValidatedDate(text, kMasks[place], ui);
  return kind == FieldKind::File && ValidatedFile(text, ui, besideFile);
}

}  // namespace lomaris

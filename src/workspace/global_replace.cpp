#include "workspace/global_replace.h"

#include "core/text.h"
#include "workspace/file_slots.h"

namespace lomaris {
namespace {

constexpr const char* kTitle = "Replace";

}  // namespace

std::string ReplaceFirst(const std::string& text, std::string_view from, std::string_view to) {
  // Upper and lower case of a letter take the same number of bytes.
  const std::size_t place = UpperCase(text).find(UpperCase(from));
  if (place == std::string::npos) return text;
  return std::string(text).replace(place, from.size(), to);
}

void ReplaceInFileNames(ProjectData& project, std::string_view from, std::string_view to) {
  const auto replace = [&](std::string& name) {
    if (name != kNotSpecified) name = ReplaceFirst(name, from, to);
  };
  replace(project.FileName);
  for (const FileSlot& slot : kFileSlots) {
    if (!slot.IsList()) replace(project.*slot.Name);
  }
  for (BoundedArray<BranchBCFiles>* files : {&project.BCFilesH, &project.BCFilesQ}) {
    for (BranchBCFiles& ends : *files) {
      replace(ends.Upstream);
      replace(ends.Downstream);
    }
  }
}

bool GlobalReplace(ProjectData& project, Ui& ui, const std::function<bool()>& mayReplace) {
  const std::string from = ui.AskText(
      {.Prompt = "This will do a global search and replace on all filenames found in the Project "
                 "file. It can be useful if you move all project files to a different drive or "
                 "directory. Here you are prompted to enter the string to search for, then you "
                 "will be prompted for the string to replace. \r\n\r\nEnter case-insensitive "
                 "string in filenames to search for (for example: C:\\OLDDIR\\): ",
       .Title = kTitle});
  if (from.empty()) return false;
  const std::string to = ui.AskText({.Prompt = "Now enter the replacement string for '" + from +
                                               "' (for example: C:\\NEWDIR\\): ",
                                     .Title = kTitle});
  if (to.empty() || !mayReplace()) return false;
  ReplaceInFileNames(project, from, to);
  return true;
}

}  // namespace lomaris

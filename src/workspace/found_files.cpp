#include "workspace/found_files.h"

#include <filesystem>
#include <optional>

#include "core/files.h"
#include "core/text.h"
#include "model/file_names.h"
#include "workspace/file_slots.h"

namespace lomaris {

FoundFiles FilesFoundBy(const ProjectData& project, const std::string& projectFile) {
  FoundFiles found;
  const auto look = [&](const std::string& name) {
    if (!NamesAFile(name)) return;
    const std::optional<std::string> path = FindFile(name, projectFile);
    std::error_code failed;
    found[name] = path ? std::filesystem::canonical(*path, failed).string() : std::string();
  };
  for (const FileSlot& slot : kFileSlots) {
    if (!slot.IsList()) look(project.*slot.Name);
  }
  for (const BoundedArray<BranchBCFiles>* files : {&project.BCFilesH, &project.BCFilesQ}) {
    for (const BranchBCFiles& ends : *files) {
      look(ends.Upstream);
      look(ends.Downstream);
    }
  }
  for (const BoundedArray<std::string>* names : {&project.MetFiles, &project.OtherFiles}) {
    for (const std::string& name : *names) look(name);
  }
  return found;
}

void TellOfOtherFilesFound(const FoundFiles& before, const FoundFiles& after, Ui& ui) {
  std::string names;
  for (const auto& [name, path] : before) {
    const auto now = after.find(name);
    if (!path.empty() && (now == after.end() || now->second != path))
      names.append(kLineBreak).append(name);
  }
  if (names.empty()) return;
  ui.ShowMessage({.Text = "From its new directory the project finds other files, or none, under "
                          "these names:\r\n" +
                          names + "\r\n\r\nCopy the files there, or select them again.",
                  .Title = "Save As",
                  .BoxIcon = Icon::Warning});
}

}  // namespace lomaris

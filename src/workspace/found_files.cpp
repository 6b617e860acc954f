#include "workspace/found_files.h"

#include <filesystem>
#include <optional>

#include "core/files.h"
#include "core/run_time_error.h"
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

namespace {

/// A project that was moved together with its files finds the same files. What cannot be read is
/// not known to be the same.
bool SameContent(const std::string& a, const std::string& b) {
  if (a.empty() || b.empty()) return false;
  try {
    return ReadWholeFile(a) == ReadWholeFile(b);
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace

void TellOfOtherFilesFound(const FoundFiles& before, const FoundFiles& after, Ui& ui) {
  std::string names;
  for (const auto& [name, path] : before) {
    if (path.empty()) continue;
    const auto now = after.find(name);
    const std::string nowPath = now == after.end() ? std::string() : now->second;
    if (nowPath != path && !SameContent(nowPath, path)) names.append(kLineBreak).append(name);
  }
  if (names.empty()) return;
  ui.ShowMessage({.Text = "From its new directory the project finds other files, or none, under "
                          "these names:\r\n" +
                          names + "\r\n\r\nCopy the files there, or select them again.",
                  .Title = "Save As",
                  .BoxIcon = Icon::Warning});
}

}  // namespace lomaris

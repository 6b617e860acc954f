#include "workspace/project_form.h"

#include <algorithm>
#include <filesystem>

#include "core/files.h"
#include "core/text.h"
#include "model/file_names.h"

namespace lomaris {
namespace {

using BoundaryFiles = BoundedArray<BranchBCFiles>;

SlotList ListOf(std::vector<std::string> rows) {
  const int selected = rows.empty() ? -1 : 0;
  return {std::move(rows), selected};
}

std::vector<std::string> BoundaryRows(const BoundaryFiles& files) {
  std::vector<std::string> rows;
  int branch = 0;
  for (const BranchBCFiles& ends : files) {
    ++branch;
    if (NamesAFile(ends.Upstream)) rows.push_back(BoundaryRowText({ends.Upstream, true, branch}));
    if (NamesAFile(ends.Downstream))
      rows.push_back(BoundaryRowText({ends.Downstream, false, branch}));
  }
  return rows;
}

std::vector<std::string> MetRows(const ProjectData& project) {
  std::vector<std::string> rows;
  for (int i = 1; i <= project.MetCount; ++i) rows.push_back(project.MetFiles[i]);
  return rows;
}

/// Stores the rows by branch and returns the largest branch number seen.
std::int16_t StoreBoundaryRows(const std::vector<std::string>& rows, BoundaryFiles& files) {
  files = BoundaryFiles(1, kMostBranches);
  int count = 0;
  for (const std::string& text : rows) {
    const BoundaryRow row = ParseBoundaryRow(text);
    if (row.Branch > kMostBranches) continue;  // no file holds it, and the project must be saved
    BranchBCFiles& ends = files[row.Branch];
    (row.IsUpstream ? ends.Upstream : ends.Downstream) = row.FileName;
    count = Max(count, row.Branch);
  }
  return static_cast<std::int16_t>(count);
}

/// Stores at most as many texts as the array holds, and returns how many.
std::int16_t StoreTexts(const std::vector<std::string>& texts, BoundedArray<std::string>& stored) {
  stored = BoundedArray<std::string>(1, stored.UpperBound());
  const auto count = Min<std::int64_t>(static_cast<std::int64_t>(texts.size()), stored.Count());
  for (std::int64_t i = 1; i <= count; ++i) stored[i] = texts[static_cast<std::size_t>(i - 1)];
  return static_cast<std::int16_t>(count);
}

}  // namespace

OtherFileEnd AddOtherFile(ProjectForm& form, std::string_view path) {
  const std::string name(path.substr(0, path.find('\0')));
  const bool known =
      std::any_of(form.OtherFiles.begin(), form.OtherFiles.end(),
                  [&](const std::string& other) { return EqualIgnoringCase(other, name); });
  std::error_code failed;
  if (known) return OtherFileEnd::IsThere;
  if (std::filesystem::is_directory(name, failed)) return OtherFileEnd::IsFolder;
  if (form.OtherFiles.size() >= kMostOtherFiles) return OtherFileEnd::ListIsFull;
  form.OtherFiles.push_back(name);
  return OtherFileEnd::Added;
}

ProjectForm FormOf(const ProjectData& project, Ui& ui) {
  ProjectForm form;
  form.Description = project.Description;
  for (std::size_t slot = 0; slot < kFileSlotCount; ++slot) {
    if (kFileSlots[slot].IsList()) continue;
    form.Texts[slot] = NormaliseFileName(project.*kFileSlots[slot].Name, true);
  }
  form.Lists[kBoundarySlotH] = ListOf(BoundaryRows(project.BCFilesH));
  form.Lists[kMetSlot] = ListOf(MetRows(project));
  form.Lists[kBoundarySlotQ] = ListOf(BoundaryRows(project.BCFilesQ));

  // A project file tells how many other files there were, not which: after it has been read each
  // one is blank, is told of here, and has to be added again.
  for (int i = 1; i <= project.OtherCount; ++i) {
    const std::string& path = project.OtherFiles[i];
    if (FindFile(path, project.FileName)) {
      AddOtherFile(form, path);
    } else {
      ui.ShowMessage(
          {.Text = "File named " + path + " not found; it has been deleted from the list.",
           .Title = "Error",
           .BoxIcon = Icon::Critical});
    }
  }
  return form;
}

void StoreOtherFiles(const ProjectForm& form, ProjectData& project) {
  project.OtherCount = StoreTexts(form.OtherFiles, project.OtherFiles);
}

void StoreForm(const ProjectForm& form, ProjectData& project) {
  ProjectData stored = project;
  stored.Description = form.Description;
  for (std::size_t slot = 0; slot < kFileSlotCount; ++slot) {
    if (kFileSlots[slot].IsList()) continue;
    stored.*kFileSlots[slot].Name = NormaliseFileName(form.Texts[slot], true);
  }
  stored.BCCountH = StoreBoundaryRows(form.Lists[kBoundarySlotH].Rows, stored.BCFilesH);
  stored.BCCountQ = StoreBoundaryRows(form.Lists[kBoundarySlotQ].Rows, stored.BCFilesQ);
  stored.MetCount = StoreTexts(form.Lists[kMetSlot].Rows, stored.MetFiles);
  StoreOtherFiles(form, stored);
  project = std::move(stored);
}

}  // namespace lomaris

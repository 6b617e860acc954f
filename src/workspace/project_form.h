#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/ports/ui.h"
#include "model/project_data.h"
#include "workspace/file_slots.h"

namespace lomaris {

/// A list slot: its rows and which one is selected, -1 for none.
struct SlotList {
  std::vector<std::string> Rows;
  int Selected = -1;

  bool operator==(const SlotList&) const = default;
};

/// What stands in the controls of the project window.
struct ProjectForm {
  std::string Description;
  std::array<std::string, kFileSlotCount> Texts;  ///< of the text slots
  std::array<SlotList, kFileSlotCount> Lists;     ///< of the list slots
  std::vector<std::string> OtherFiles;            ///< paths, no two the same but for case

  bool operator==(const ProjectForm&) const = default;
};

/// How it went to add an other file.
enum class OtherFileEnd { Added, IsThere, IsFolder, ListIsFull };

/// Adds the part of `path` before any NUL to the other files, unless it is there already in any
/// case of letters.
OtherFileEnd AddOtherFile(ProjectForm& form, std::string_view path);

/// The record as the window shows it. Each other file that no longer exists is told of and dropped.
ProjectForm FormOf(const ProjectData& project, Ui& ui);

/// Puts the window's list of other files into the record.
void StoreOtherFiles(const ProjectForm& form, ProjectData& project);

/// Puts what the window shows into the record. Error 9 for a boundary file of a branch above 20;
/// the record is then as it was.
void StoreForm(const ProjectForm& form, ProjectData& project);

}  // namespace lomaris

#pragma once

#include <string>
#include <string_view>

#include "core/ports/ui.h"
#include "model/project_data.h"

namespace lomaris {

/// A file name, trimmed. One that in upper case is empty, "NONE", "NULL" or "(NOT SPECIFIED)" is no
/// file: "(Not Specified)" for display, "NULL" for a file. Readers ask for display, writers do not.
std::string NormaliseFileName(std::string_view name, bool forDisplay);

/// Project file. The layout stands in docs/formats/prj.md and at the head of prj_file.cpp.
///
/// False when the file cannot be read; the user has been told by then, and `project` is as it was.
bool LoadPRJFile(ProjectData& project, Ui& ui, const std::string& fileName);

/// False when the file could not be written; the user has been told by then, and the old file is
/// whole. On success `project.Dirty` is false and the previous version lies in the .bak file.
bool SavePRJFile(ProjectData& project, Ui& ui, const std::string& fileName);

}  // namespace lomaris

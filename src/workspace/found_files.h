#pragma once

#include <map>
#include <string>

#include "core/ports/ui.h"
#include "model/project_data.h"

namespace lomaris {

/// The file that is found for each name in a project; an empty path where there is none.
using FoundFiles = std::map<std::string, std::string>;

/// `projectFile` is where the project lies.
FoundFiles FilesFoundBy(const ProjectData& project, const std::string& projectFile);

/// A project that was saved in another directory may find other files, or none, under names that
/// hold no directory: those names are told. A file of the same content is no other file.
void TellOfOtherFilesFound(const FoundFiles& before, const FoundFiles& after, Ui& ui);

}  // namespace lomaris

#pragma once

#include <string>

#include "core/files.h"
#include "editors/surroundings.h"

namespace lomaris {

/// The name under which an editor saves the file `name`: that one, unless it is blank or `saveAs`;
/// then it is asked for, with the filter of that place in the shared tables. A file that is no
/// longer as `onDisk` tells is asked about first. Empty: the user does not want to save after all.
std::string NameToSaveUnder(const std::string& name, const FileStamp& onDisk, bool saveAs,
                            int filter, const std::string& projectFile,
                            const EditorSurroundings& around);

/// Whether the project names another file than `name` by now. It may be the reason why that one
/// goes, and its choice stands when that one is saved on the way out.
bool NamesAnother(const std::string& projects, const std::string& name,
                  const std::string& projectFile);

}  // namespace lomaris

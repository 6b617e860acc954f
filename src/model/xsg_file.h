#pragma once

#include <string>

#include "core/ports/ui.h"
#include "model/project_data.h"
#include "model/xsect_library.h"

namespace lomaris {

/// Cross section library. A blank name, and a name of no existing file (which is told), load
/// nothing and are a success. A name without a directory is looked up beside the project as well.
///
/// False, with `library` as it was, when the file cannot be read; the user has been told by then.
bool LoadXSGFile(XSectLibrary& library, const ProjectData& project, Ui& ui,
                 const std::string& fileName);

/// Points are stored to 0.01 ft, names are cut to 8 characters. False when the file could not be
/// written; the user has been told by then, and the old file is whole.
bool SaveXSGFile(XSectLibrary& library, const ProjectData& project, Ui& ui,
                 const std::string& fileName);

}  // namespace lomaris

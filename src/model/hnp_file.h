#pragma once

#include <string>

#include "core/ports/ui.h"
#include "model/hydro_input.h"
#include "model/project_data.h"

namespace lomaris {

/// Hydrodynamic input file. A blank name, and a name of no existing file (which is told), load
/// nothing and are a success: a new file is an ordinary outcome.
///
/// False, with both records as they were, when the file cannot be read; the user has been told by
/// then.
bool LoadHNPFile(HydroInput& hydro, ProjectData& project, Ui& ui, const std::string& fileName);

/// Refuses a network in which two cross sections have the same name. On success the project takes
/// the boundary and auxiliary names of `hydro`, and is dirty when that changed one of them.
///
/// False when the file was not written; the user has been told by then, and the old file is whole.
bool SaveHNPFile(HydroInput& hydro, ProjectData& project, Ui& ui, const std::string& fileName);

}  // namespace lomaris

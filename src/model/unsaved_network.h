#pragma once

#include "core/ports/ui.h"
#include "model/hydro_input.h"
#include "model/project_data.h"

namespace lomaris {

/// Asks what is to become of the unsaved changes of a network: Yes, No or Cancel.
Answer AskToSaveNetwork(Ui& ui);

/// Before a network that no window edits goes out of memory: asks about its unsaved changes, where
/// it has any, and saves it under its name. Changes that are given up leave memory with it. False:
/// it has to stay.
bool SaveNetworkFirst(HydroInput& hydro, ProjectData& project, Ui& ui);

}  // namespace lomaris

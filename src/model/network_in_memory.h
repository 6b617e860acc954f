#pragma once

#include <string>

#include "core/ports/ui.h"
#include "core/ports/workbench.h"
#include "model/hydro_input.h"
#include "model/project_data.h"

namespace lomaris {

/// What became of a wish for the project's network.
enum class NetworkState {
  Loaded,
  Missing,  ///< the project names no file of a network, or one that cannot be read
  Kept,     ///< the user keeps another one, with its unsaved changes
};

/// Has the network of the project's hydrodynamic file in `hydro`, and reads it unless it is there
/// already; a network without a file of the project stays. A missing file is no network here.
NetworkState LoadNetwork(HydroInput& hydro, ProjectData& project, Ui& ui, Workbench& windows);

/// What a network is called where its unsaved changes are asked about.
inline constexpr const char* kNetworkFile = "Hydrodynamic input file";

/// Before a network that no window edits goes out of memory: asks about its unsaved changes, where
/// it has any, and saves it under its name, with the names that the project has by now for its
/// other files, and not over what others have written to its file without asking. Changes that are
/// given up leave memory with it. False: it has to stay.
bool SaveNetworkFirst(HydroInput& hydro, ProjectData& project, Ui& ui);

/// Has the network of the file `name`, if there is one, in memory as it is on disk now: other
/// windows work on it still, when its changes were given up or its file was written by others.
void RereadNetwork(HydroInput& hydro, ProjectData& project, Ui& ui, const std::string& name);

}  // namespace lomaris

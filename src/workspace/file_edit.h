#pragma once

#include <optional>
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

/// What is to be done before a file is opened in its editor. A name may carry a remark in brackets,
/// which is cut off; its last three characters are its type. A type that needs the network has the
/// project's loaded first.
/// Returns the request with name and type set; nothing when there is nothing to open or the network
/// is not there (which has been told by then).
std::optional<EditRequest> PrepareFileEdit(EditRequest request, HydroInput& hydro,
                                           ProjectData& project, Ui& ui, Workbench& windows);

}  // namespace lomaris

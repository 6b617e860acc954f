#pragma once

#include <optional>
#include <string>

#include "core/ports/ui.h"
#include "core/ports/workbench.h"
#include "model/hydro_input.h"
#include "model/project_data.h"

namespace lomaris {

/// What is to be done before a file is opened in its editor. A name may carry a remark in brackets,
/// which is cut off; its last three characters are its type. A type that needs the network has the
/// project's loaded first.
/// Returns the request with name and type set; nothing when there is nothing to open or the network
/// is not there (which has been told by then).
std::optional<EditRequest> PrepareFileEdit(EditRequest request, HydroInput& hydro,
                                           ProjectData& project, Ui& ui, Workbench& windows);

}  // namespace lomaris

#pragma once

#include "core/ports/ui.h"
#include "core/ports/workbench.h"
#include "core/tables.h"
#include "model/hydro_input.h"
#include "model/project_data.h"

namespace lomaris {

/// Looks at an auxiliary file that a slot of the project has got: reads its header, holds it
/// against the project's network, and tells what is wrong. The file stays where it was put. So the
/// user hears of a file of another river, or of a rating table at a flow boundary, before the model
/// does.
///
/// `attached` is what the slot's file would be edited with. The network is the one in memory, or
/// the project's read aside: `inMemory` and the windows stay as they are. Nothing is looked at
/// without a network, nor a file of another kind, nor one that is not there.
void LookAtAttachedFile(const EditRequest& attached, const HydroInput& inMemory,
                        const ProjectData& project, const Tables& tables, Ui& ui);

}  // namespace lomaris

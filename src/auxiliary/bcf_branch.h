#pragma once

#include "auxiliary/aux_data.h"
#include "auxiliary/aux_surroundings.h"

namespace lomaris {

// A boundary file belongs to an end of a branch: b is the upstream end of branch b, -b its
// downstream end, 0 none. The project says which, where it lists the boundary files of the
// hydrodynamic and the water quality model; the file repeats it for the model.

/// Tells when the branch in the file is not the project's. The record keeps the file's number until
/// it is saved, and counts as modified when the project has one for it.
void CheckBranch(AuxData& aux, const AuxSurroundings& around);

/// Takes the project's branch into the record; 0, which is told, when no branch has the file.
void AdoptBranch(AuxData& aux, const AuxSurroundings& around);

}  // namespace lomaris

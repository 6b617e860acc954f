#pragma once

#include "auxiliary/aux_load.h"

namespace lomaris {

/// Takes the names at the end of a file into the entries. False, having told it, when the load ends
/// here.
bool ReadNames(const AuxLoad& load);

}  // namespace lomaris

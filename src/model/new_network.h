#pragma once

#include "model/hydro_input.h"

namespace lomaris {

/// A network without branches to begin with, simulated from `start` to `end`: usual run parameters,
/// and two steps of each kind, at the start and at the end.
HydroInput NewNetwork(ModelDateTime start, ModelDateTime end);

}  // namespace lomaris

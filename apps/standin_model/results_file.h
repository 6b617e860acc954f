#pragma once

#include <span>
#include <string>

#include "core/ports/ui.h"
#include "flood_wave.h"

namespace lomaris {

/// Writes what a wave shows as a binary modeling file: the columns are its variables, the cross
/// sections its segments, and each of `parts` of the run, 0 to 1, is a time step. False, having
/// told it, when there is nothing to write. Throws RuntimeError when the disk fails.
bool WriteResults(const std::string& path, const FloodWave& wave, std::span<const double> parts,
                  Ui& ui);

}  // namespace lomaris

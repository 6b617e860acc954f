#pragma once

#include <string>

#include "auxiliary/aux_data.h"
#include "auxiliary/aux_load.h"

namespace lomaris {

// Withdrawals: text, lines end CR LF, fields separated by a tab. Numbers are printed (a blank
// before and after each) but for the values, which are joined. N active cross sections.
//
//   three description lines
//   time steps, N, interpolation (0 stair-step, 1 linear)
//   N lines: node, scale factor, conversion factor
//   per time step: year, month, day, hour; then a row with the values of all cross sections
//   terminator: 9999, 1, 1, 0
//   names of the cross sections, a line each

/// The header, and with a window all that follows. False, having told it.
bool ReadWIT(const AuxLoad& load);

void AppendWIT(std::string& out, AuxData& aux, const AuxSurroundings& around);

}  // namespace lomaris

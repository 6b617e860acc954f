#pragma once

#include <string>

#include "auxiliary/aux_data.h"
#include "auxiliary/aux_load.h"

namespace lomaris {

// Heat loads of power plants: text, lines end CR LF, fields separated by a tab. Numbers are printed
// (a blank before and after each) but for the values, which are joined. N active cross sections.
//
//   three description lines
//   time steps, N, interpolation (0 stair-step, 1 linear), heat load type (0 temperature
//   difference,
//     1 temperature of the effluent)
//   N lines: node of the discharge, scale and conversion factor of the flow, scale and conversion
//     factor of the temperature, node of the intake
//   per time step: year, month, day, hour; then a row with the flows of all cross sections; then a
//     row with the temperatures
//   terminator: 9999, 1, 1, 0
//   two lines per cross section: its name, the name of the intake's cross section
//
// The counts and the lines of the cross sections are split at tabs only. Legacy files have only the
// first three fields on the latter: the intake is then the next node upstream, which is told.

/// The header, and with a window all that follows. False, having told it.
bool ReadPOW(const AuxLoad& load);

/// `NumConst` becomes 1.
void AppendPOW(std::string& out, AuxData& aux, const AuxSurroundings& around);

}  // namespace lomaris

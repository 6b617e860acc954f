#pragma once

#include <string>

#include "auxiliary/aux_data.h"
#include "auxiliary/aux_load.h"

namespace lomaris {

// Lateral inflows: text, lines end CR LF, fields separated by a tab. Numbers are joined (no blanks
// around them) but for the nodes and slots, which are printed. N active cross sections, C active
// slots besides the flow.
//
//   three description lines
//   time steps, N, interpolation (0 stair-step, 1 linear), C
//   N lines: node
//   C lines: slot less one, 1 to 16
//   C lines: name of the constituent in upper case
//   "SCALE_FACTORS", then the names of all columns, the flow first
//   N rows: scale factors by column
//   "CONVERSION_FACTORS", then the names again
//   N rows: conversion factors by column
//   per time step: year, month, day, hour; then N rows of values by column
//   terminator: 9999, 1, 1, 0, printed
//   names of the cross sections, a line each
//
// On reading rows may be wrapped or joined in any way; the names of the constituents are not looked
// at.

/// The header, and with a window all that follows. False, having told it.
bool ReadLAT(const AuxLoad& load);

/// `NumConst` is counted anew.
void AppendLAT(std::string& out, AuxData& aux, const AuxSurroundings& around);

}  // namespace lomaris

#pragma once

#include <string>

#include "auxiliary/aux_data.h"
#include "auxiliary/aux_load.h"

namespace lomaris {

// Boundary conditions at one end of one branch: text, lines end CR LF, fields separated by a tab.
// Numbers are joined (no blanks around them).
//
// A time series has a column for the flow or depth and one for each constituent, in order:
//
//   three description lines
//   branch (negative for its downstream end), time steps, interpolation (0 stair-step, 1 linear)
//   scale factors by column
//   conversion factors by column
//   per time step: year, month, day, hour, then the values by column, on one line
//
// There is no terminator and there are no names. The scale factors tell how many columns there are.
//
// A rating table has 99999 in place of the time steps:
//
//   three description lines
//   branch, 99999, interpolation
//   1, a scale factor
//   1, a conversion factor
//   number of points, printed (a blank before and after it)
//   per point: depth in ft, discharge in cfs
//
// On reading rows and points may be wrapped or joined in any way.

/// The header and the points of a rating table, and with a window the time steps. False, having
/// told it; also for a file that is not of the kind that the network has at its place.
bool ReadBCF(const AuxLoad& load);

/// The record's branch becomes that of the project, the factors of a rating table become 1. A
/// column whose slot is not active is left out of the rows only, and the model and the reader,
/// which count the factors, could not read the file: all columns of a boundary are to be active.
void AppendBCF(std::string& out, AuxData& aux, const AuxSurroundings& around);

}  // namespace lomaris

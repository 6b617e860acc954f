#pragma once

#include <string>

#include "auxiliary/aux_data.h"
#include "auxiliary/aux_load.h"

namespace lomaris {

// Weather over a reach of the network: text, lines end CR LF, fields separated by a tab. Numbers
// are printed (a blank before and after each) but for the values, which are joined.
//
//   three description lines
//   dust attenuation
//   latitude, longitude, longitude of the standard meridian
//   interpolation (0 stair-step, 1 linear), node of the reach's first cross section, node of its
//     last, time steps, options
//   per time step: year, month, day, hour, then the values by column, on one line
//   terminator: 9999, 1, 1, 0
//   names of the first and the last cross section, a line each
//
// The options are one field of two texts without anything between them: "WET", "DEW", "REL" or
// nothing for what column 4 holds, then "RAD" or nothing for column 1. "CLO", too, stands for cloud
// cover on reading. The cloud option is read only behind a temperature option, so solar radiation
// alone does not come back: the editor saves no file without a temperature option. Legacy files
// have no options.
//
// Columns: cloud cover as a fraction, or solar radiation in kJ/m2; wind speed in mph; dry bulb
// temperature in degrees F; wet bulb or dew point temperature in degrees F, or relative humidity in
// percent; atmospheric pressure in inches of mercury.
//
// The line of the options is split at tabs only. Rows may be wrapped or joined in any way.

/// The header, and with a window all that follows. A wet bulb that is not below the dry bulb may be
/// lowered. False, having told it.
bool ReadMET(const AuxLoad& load);

void AppendMET(std::string& out, AuxData& aux, const AuxSurroundings& around);

}  // namespace lomaris

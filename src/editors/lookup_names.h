#pragma once

#include <string>

#include "model/hydro_input.h"
#include "model/xsect_library.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

// A cross section of the network looks its shape up by name; these follow a section that gets
// another one.

/// True when a look-up of the network was renamed.
bool RenameLookups(HydroInput& hydro, const std::string& from, const std::string& to);

/// In the grid of cross sections, as one step that can be undone.
void RenameLookups(Sheet& xsects, const std::string& from, const std::string& to);

void RenameSections(XSectLibrary& library, const std::string& from, const std::string& to);

}  // namespace lomaris

#pragma once

#include <string>
#include <vector>

#include "model/hydro_input.h"
#include "model/xsect_library.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

// A cross section of the network looks its shape up by name; these follow a section that gets
// another one. `xsects`: names of the cross sections that are to follow, sorted; empty for all.

bool LooksUp(const HydroInput& hydro, const std::string& section);

/// The names of the cross sections whose look-ups were renamed, sorted.
std::vector<std::string> RenameLookups(HydroInput& hydro, const std::string& from,
                                       const std::string& to,
                                       const std::vector<std::string>& xsects = {});

/// In the grid of cross sections, which forgets its history: undoing an edit must not bring the old
/// name back.
void RenameLookups(Sheet& sheet, const std::string& from, const std::string& to,
                   const std::vector<std::string>& xsects);

void RenameSections(XSectLibrary& library, const std::string& from, const std::string& to);

}  // namespace lomaris

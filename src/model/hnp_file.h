#pragma once

#include <string>

#include "core/ports/ui.h"
#include "model/file_names.h"
#include "model/hydro_input.h"
#include "model/project_data.h"

namespace lomaris {

// Hydrodynamic input file: text, lines end CR LF, numbers separated by tabs on writing and by any
// blanks on reading. A number that stands alone has a blank before and after it.
//
//   title, as one line
//   total cross sections, branches, start year, month, day, hour, end year, month, day, hour,
//     seed year
//   Beta, Gravity, MileAtBottom, Theta, Tolerance
//   print steps: their number; one line each with year, month, day, hour, hours
//   time steps: their number; one line each with year, month, day, hour, seconds
//   then per branch
//     number of the branch
//     name
//     upstream type
//     downstream type
//     cross sections, DSBranch, DSXSect, USValue, DSValue, DSAngle
//     then per cross section
//       name
//       lookup name
//       Length, Flow, Depth, Lateral, Invert, C1, C2, C3, ManningN, Loss, N1, N2, Print as 1 or 0
//   boundary files: the list of boundary_list.h
//   lateral inflows; withdrawals; cross section library, a line each, "NULL" for none
//
// What follows the branches is for the model: the names of a project's network come from the
// project. Nor does the reader believe the total on line 2.

/// Fills `hydro` anew from a file; the branch with number i in the file is `Branches[i]`, wherever
/// it stands, while its boundary files are those that the project has for its place in the file.
/// A blank name, and a name of no existing file (which is told), load nothing and are a success: a
/// new file is an ordinary outcome. A name that is not absolute is looked up beside the
/// project first. On success the project's list of boundary files has a place for every branch;
/// with `NamesFrom::File`, `project` has the names that the file has.
///
/// False, with both records as they were, when the file cannot be read; the user has been told by
/// then.
bool LoadHNPFile(HydroInput& hydro, ProjectData& project, Ui& ui, const std::string& fileName,
                 NamesFrom names = NamesFrom::Project);

/// Refuses a network in which two cross sections have the same name. On success the project takes
/// the boundary and auxiliary names of `hydro`, and is dirty when that changed one of them.
///
/// A date that no file can hold is reported where it is broken up, and then ends the save.
/// False when the file was not written; the user has been told by then, and the old file is whole.
bool SaveHNPFile(HydroInput& hydro, ProjectData& project, Ui& ui, const std::string& fileName);

}  // namespace lomaris

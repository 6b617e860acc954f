#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/ports/ui.h"
#include "model/file_names.h"
#include "model/hydro_input.h"
#include "model/project_data.h"
#include "model/qual_input.h"

namespace lomaris {

// Water quality input file: text, lines end CR LF, numbers separated by tabs on writing and by any
// blanks on reading.
//
//   title, as one line
//   start year, month, day, hour, end year, month, day, hour
//   GlobalKinetics: a group of 9 lines with 5, 5, 5, 5, 1, 4, 5, 3, 3 values
//   print steps: their number; one line each with year, month, day, hour, hours
//   Bypass: 16 logicals as 1 or 0, on one line
//   then per branch of the network
//     number of the branch
//     name
//     BranchKinetics: a group of 15 lines with 2, 2, 3, 2, 4, 3, 3, 5, 5, 4, 4, 2, 2, 1, 1 values;
//       the last is a logical, ".TRUE." or ".FALSE."
//     then per cross section of the network's branch
//       name
//       Print as 1 or 0
//       InitialConc: a group of 2 lines with 12, 4 values
//       LateralConc: the same
//       XSectKinetics: a group of 5 lines with 2, 4, 3, 4, 5 values
//   boundary files: the list of boundary_list.h
//   meteorological files: their number; one line each with the name
//   lateral inflows; heat loads, a line each, "NULL" for none
//
// The file counts neither its branches nor its cross sections. The values of a group may be spread
// over its lines in any way, but it has that number of lines and that number of values. What
// follows the branches is for the model: the names of a project's files come from the project.

/// What stands in place of a file name for a file that is to be built from the network.
inline constexpr std::string_view kNewQualFile = "QNP";

/// How a water quality file is loaded.
struct QualLoad {
  /// Where the report of name mismatches goes for a file whose name has no folder. Where that is
  /// empty, or nothing can be written there, it goes beside the file.
  std::string ProgramFolder = {};
  std::function<void(int percent)> SetProgress = {};  ///< after each branch
  NamesFrom Names = NamesFrom::Project;
};

/// Fills `qual` anew from a file that belongs to the network in `hydro`; the branch with number i
/// in the file is `Branches[i]`, wherever it stands. A blank name, `kNewQualFile`, and a name of no
/// existing file (which is told), load nothing and are a success. A name that is not absolute is
/// looked up beside the project first. On success the project's list of boundary files has a place
/// for every branch; with `NamesFrom::File`, `project` has the names that the file has.
///
/// Names of cross sections that differ from the network's are told once a load, listed in a report
/// (name_mismatches.h), and kept.
///
/// False, with both records as they were, when the file cannot be read, does not have the branches
/// and cross sections of the network, or a branch has fewer than `kFewestXSects`; the user has been
/// told by then.
bool LoadQNPFile(QualInput& qual, ProjectData& project, const HydroInput& hydro, Ui& ui,
                 const std::string& fileName, const QualLoad& how = {});

/// That water quality needs `kFewestXSects` cross sections in each branch.
void TellTooFewXSects(Ui& ui);

/// On success the project takes the boundary, meteorological and auxiliary names of `qual`, and is
/// dirty when that changed one of them.
///
/// A date that no file can hold is reported where it is broken up, and then ends the save.
/// False when the file was not written; the user has been told by then, and the old file is whole.
bool SaveQNPFile(QualInput& qual, ProjectData& project, Ui& ui, const std::string& fileName);

}  // namespace lomaris

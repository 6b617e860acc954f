#pragma once

#include <string>

#include "core/ports/ui.h"
#include "model/file_names.h"
#include "model/project_data.h"

namespace lomaris {

// Project file: text, lines end CR LF. Sections, each opened by a keyword at the start of a line;
// the reader takes them in any order and any case and skips the lines between them. The writer's
// order:
//
//   HYDRODYNAMIC_INPUT_FILE: name          nothing behind the blank for no file
//   WATER_QUALITY_INPUT_FILE: name         here and below "NULL" for no file
//   VESKH_AUXILLARY_FILES:
//     boundary files                       the list of boundary_list.h
//     lateral inflows; withdrawals; cross section library, a line each
//     blank line
//   VESKQ_AUXILLARY_FILES:
//     boundary files                       as above
//     number of weather files; their names, a line each
//     lateral inflows; heat loads, a line each
//     blank line
//   PROJECT_DESCRIPTION:
//     description, as one line
//     blank line
//   OTHER_FILES:                           a section only where it stands alone on its line
//     number of other files; their names, a line each
//     blank line

/// Fills `project` anew from a file; nothing of an earlier project survives. The names of the other
/// files are counted and passed over, so that list comes back with its count and blank entries.
///
/// A failure is reported. Abort leaves the routine, Retry reads the file again from its start (it
/// may have been mended meanwhile), Ignore skips the rest of the section.
///
/// False when the file cannot be read; the user has been told by then, and `project` is as it was.
bool LoadPRJFile(ProjectData& project, Ui& ui, const std::string& fileName);

/// False when the file could not be written; the user has been told by then, and the old file is
/// whole. On success `project.Dirty` is false and the previous version lies in the .bak file.
bool SavePRJFile(ProjectData& project, Ui& ui, const std::string& fileName);

}  // namespace lomaris

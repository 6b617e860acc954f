#pragma once

#include <string>

#include "core/ports/ui.h"
#include "model/project_data.h"
#include "model/xsect_library.h"

namespace lomaris {

// Cross section library: text, lines end CR LF. A number that stands alone has a blank before and
// after it.
//
//   three title lines, whole
//   number of entries
//   then per entry
//     name, blank-filled and cut to 8 characters, 4 blanks, description
//     number of points
//     one line per point: depth, tab, station, each in ft with two decimals
//
// On reading, the name is the first word of its line and the description the others, each followed
// by one blank; a line of one word has the description "Unknown", and "Unknown" is written as no
// description at all. So a library that was read once comes back from every save as it was.

/// Fills `library` anew from a file. A blank name, and a name of no existing file (which is told),
/// load nothing and are a success. A name that is not absolute is looked up beside the
/// project first.
///
/// False, with `library` as it was, when the file cannot be read; the user has been told by then.
bool LoadXSGFile(XSectLibrary& library, const ProjectData& project, Ui& ui,
                 const std::string& fileName);

/// Points are stored to 0.01 ft, names are cut to 8 characters; an entry that could not be read
/// back (no name, a blank in it, more than 99 words of description) is refused. False when the file
/// could not be written; the user has been told by then, and the old file is whole.
bool SaveXSGFile(XSectLibrary& library, const ProjectData& project, Ui& ui,
                 const std::string& fileName);

}  // namespace lomaris

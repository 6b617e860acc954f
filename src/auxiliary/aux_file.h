#pragma once

#include "auxiliary/aux_data.h"
#include "auxiliary/aux_surroundings.h"

namespace lomaris {

// The one reader and the one writer of auxiliary files. The last three characters of `FileName`
// tell the kind; each kind has a pair of files that gives its layout. Results of a model (BMD) are
// read for viewing and not saved: `clsBMD` writes such files.

/// Fills `aux` anew from the file `FileName` (of a BCF, for the boundary type `BoundaryType`).
/// Without a window only the header is read, and the record has no series. A file that is not there
/// may be created, empty; that, and an empty file, is no success.
///
/// `Modified` is then true when the load repaired something. False, with `aux` as it was but for
/// `Modified`, which is false, and the window closed, when the file cannot be read; the user has
/// been told by then.
bool LoadAUXFile(AuxData& aux, const AuxSurroundings& around);

/// Writes the active cross sections to `FileName`, clears `Modified`. There is no backup: the files
/// of a model often share a base name, and the backup of its network must not be lost. The old file
/// is whole until the new one is. False when it was not written; the user has been told by then.
bool SaveAUXFile(AuxData& aux, const AuxSurroundings& around);

}  // namespace lomaris

#pragma once

#include <string>

#include "editors/surroundings.h"

namespace lomaris {

// What the editors do with the auxiliary files that their fields name.

/// Asks for a file of the kind that a slot of the project window takes; `field` names the one at
/// hand. Empty when cancelled.
std::string AskForFile(const EditorSurroundings& around, int slot, const std::string& field,
                       const std::string& title = "Select Existing File");

/// Whether the file that a field names is there, beside `projectFile` for one, and has an editor.
bool CanEdit(const EditorSurroundings& around, const std::string& kind, const std::string& field,
             const std::string& projectFile);

/// The request to open the file that a field names. `aside`: the field is of a file that is in no
/// project, whose names mean what lies beside `projectFile`; other windows get the whole path.
EditRequest RequestFor(const std::string& kind, int slot, const std::string& field,
                       const std::string& projectFile, bool aside);

}  // namespace lomaris

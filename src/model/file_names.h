#pragma once

#include <string>
#include <string_view>

namespace lomaris {

/// Where the names of the boundary and auxiliary files of a model input are taken from.
enum class NamesFrom {
  Project,
  File,  ///< what follows the branches: of a file that is in no project
};

/// A file name, trimmed. One that in upper case is empty, "NONE", "NULL" or "(NOT SPECIFIED)" is no
/// file: "(Not Specified)" for display, "NULL" for a file. Readers ask for display, writers do not.
std::string NormaliseFileName(std::string_view name, bool forDisplay);

/// False when `NormaliseFileName` takes the name for none.
bool NamesAFile(std::string_view name);

/// Moves a name into a project. True when it names another file now.
bool TakeName(std::string& mine, std::string_view theirs);

/// A file name as it stands alone on a line of a file: without line breaks, "NULL" for none.
std::string FileNameLine(std::string_view name);

}  // namespace lomaris

#pragma once

#include <string>
#include <vector>

#include "core/ports/settings.h"
#include "core/ports/ui.h"

namespace lomaris {

/// What a file dialog is to ask for.
struct BrowseRequest {
  std::string Filter = {};  ///< or "(All Database Tables)"
  unsigned Flags = 0;       ///< of FileDialogFlag
  std::string Title = {};
  std::string FileName = {};  ///< the initial file, or empty
  bool MultiSelect = false;
  bool SaveMode = false;
};

/// The program's general dialog for opening and saving a file. Returns the chosen file, or the
/// initial one when cancelled. `request.Filter` "(All Database Tables)" is replaced by the list of
/// all kinds of tables. The dialog starts in the folder of the initial file, or where the last one
/// ended. For one file: `MultiSelect` is for `BrowseFiles`.
std::string BrowseFile(BrowseRequest& request, Ui& ui, Settings& settings);

/// The same for several files; empty when cancelled.
std::vector<std::string> BrowseFiles(BrowseRequest& request, Ui& ui, Settings& settings);

}  // namespace lomaris

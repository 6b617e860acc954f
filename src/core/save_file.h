#pragma once

#include <string>

#include "core/ports/settings.h"
#include "core/ports/ui.h"

namespace lomaris {

/// The extension that a dialog adds to a bare name: what stands between the first "|*." of a
/// filter and the next bar. Empty when that holds a star ("*.imp*") or the filter names none.
std::string DefaultExtension(const std::string& filter);

/// Keeps the folder of a chosen file under "BrowseDir", by the file's extension in upper case.
/// A name without a folder or an extension is not kept.
void RememberFolder(Settings& settings, const std::string& fileName);

/// Asks what is to become of the unsaved changes of `what` ("Project"): Yes, No or Cancel.
Answer AskToSaveChanges(const std::string& what, Ui& ui);

/// Asks for the name to save under; empty when cancelled. `filter` ends in a bar; `flags` of
/// FileDialogFlag come on top of: prompt before overwriting, the path must exist, tell a different
/// extension. The dialog starts in the folder of `projectFile`. An answer with another extension
/// than the filter's own is refused and asked for again.
std::string SaveFile(const std::string& filter, const std::string& defaultName, unsigned flags,
                     const std::string& title, const std::string& projectFile, Ui& ui,
                     Settings& settings);

}  // namespace lomaris

#pragma once

#include <string>

#include "core/ports/shell.h"
#include "core/ports/ui.h"

namespace lomaris {

/// Opens a document or an address with the desktop's program for it; a failure is told.
void ShellDocument(const std::string& path, Shell& shell, Ui& ui);

/// Tells why a document was not opened, by the result of the shell; nothing for a success.
void TellShellFailure(int result, const std::string& path, Ui& ui);

}  // namespace lomaris

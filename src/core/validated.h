#pragma once

#include <string>

#include "core/ports/ui.h"

namespace lomaris {

/// What the text of an input field is checked to be.
enum class FieldKind : int {
  Date = 0,      ///< rewritten as "mm/dd/yy"
  DateTime = 1,  ///< rewritten as "mm/dd/yy hh:mm"
  Time = 2,      ///< rewritten as "hh:mm"
  File = 3,      ///< blank, in brackets, or the name of an existing file; else the user is asked
};

/// Checks the text of an input field and rewrites it in its kind's form. False: the user has been
/// told, and the focus belongs back in the field. `besideFile` is the project file, beside which a
/// file name is looked up.
bool Validated(std::string& text, FieldKind kind, Ui& ui, const std::string& besideFile = {});

}  // namespace lomaris

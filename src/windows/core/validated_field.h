#pragma once

#include <QLineEdit>

#include "core/validated.h"

namespace lomaris {

/// Checks an input field and rewrites it in its kind's form. False: the user has been told, and the
/// focus is back in the field with its text selected.
bool Validated(QLineEdit& field, FieldKind kind, Ui& ui, const std::string& besideFile = {});

}  // namespace lomaris

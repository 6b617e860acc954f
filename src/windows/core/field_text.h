#pragma once

#include <QLineEdit>
#include <string>

namespace lomaris {

/// Leaves the cursor where it is when nothing changes.
void ShowText(QLineEdit& field, const std::string& text);

/// Shows the file name in a field as `NormaliseFileName` displays it.
void ShowNormalised(QLineEdit& field);

}  // namespace lomaris

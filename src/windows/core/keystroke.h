#pragma once

#include <QWidget>

namespace lomaris {

/// Gives a control Ctrl and a key, as if typed there: for the entries of an Edit menu. To the
/// control alone; the application would take the keys for the menu's shortcut again.
void SendKeystroke(QWidget& control, int key);

}  // namespace lomaris

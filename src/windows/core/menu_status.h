#pragma once

#include <QMainWindow>

namespace lomaris {

/// From now on the window's status bar says what the highlighted entry of its menus does, by
/// pointer or by keyboard, and is cleared when the menus are left. Entries that come and go and
/// captions that change are fine.
void SubscribeMenuStatus(QMainWindow& window);

}  // namespace lomaris

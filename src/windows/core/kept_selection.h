#pragma once

#include <QWidget>

namespace lomaris {

/// From now on the line edits of a window keep their selection while its menus are used by
/// keyboard, so that Edit | Copy finds something to copy.
void KeepSelectionInMenus(QWidget& window);

}  // namespace lomaris

#include "windows/core/editor_window.h"

#include <QCloseEvent>

namespace lomaris {

void EditorWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(MayClose());
  if (event->isAccepted()) emit Closing();
}

}  // namespace lomaris

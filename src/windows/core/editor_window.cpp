#include "windows/core/editor_window.h"

#include <QCloseEvent>

namespace lomaris {

void EditorWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // it stays also when the question fails
  if (!MayClose()) return;
  event->accept();
  emit Closing();
}

}  // namespace lomaris

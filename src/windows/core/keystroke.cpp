#include "windows/core/keystroke.h"

#include <QKeyEvent>

namespace lomaris {

void SendKeystroke(QWidget& control, int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::ControlModifier);
  static_cast<QObject&>(control).event(&press);
}

}  // namespace lomaris

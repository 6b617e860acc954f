#pragma once

#include <QWidget>

namespace lomaris {

/// What is seen while the program starts: a river, the program's name and its version. It closes,
/// and deletes itself, when its `Timer` has run out, when it is clicked, and when a dialog opens,
/// which must not stand behind it.
class frmSplash : public QWidget {
  Q_OBJECT

 public:
  frmSplash();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace lomaris

#pragma once

#include <QWidget>

namespace lomaris {

/// What is seen while the program starts: a river, the program's name and its version. It closes,
/// and deletes itself, when its `Timer` has run out or it is clicked.
class frmSplash : public QWidget {
  Q_OBJECT

 public:
  frmSplash();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace lomaris

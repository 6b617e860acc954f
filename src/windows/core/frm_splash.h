#pragma once

#include <QPixmap>
#include <QWidget>

namespace lomaris {

/// A picture in the middle of the screen. It closes, and deletes itself, when it is clicked and
/// when a dialog opens, which must not stand behind it.
class frmSplash : public QWidget {
  Q_OBJECT

 public:
  /// What is seen while the program starts, until its `Timer` has run out: a river, the program's
  /// name and its version.
  frmSplash();

  /// A picture in its own size, or in that of the screen if it is larger.
  explicit frmSplash(const QPixmap& picture);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void SetUp(QSize size);
  void PaintStart(QPainter& painter);

  QPixmap picture_;  ///< none: that of the start
};

}  // namespace lomaris

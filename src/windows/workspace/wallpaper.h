#pragma once

#include <QWidget>

namespace lomaris {

/// The picture behind a window with no project, in the middle of its area.
class Wallpaper : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace lomaris

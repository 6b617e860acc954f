#include "windows/workspace/wallpaper.h"

#include <QPainter>

#include "windows/core/themed_icon.h"

namespace lomaris {

void Wallpaper::paintEvent(QPaintEvent*) {
  constexpr double kShare = 0.8;
  QRectF area(QPointF(), QSizeF(size()) * kShare);
  area.moveCenter(QRectF(rect()).center());
  QPainter painter(this);
  ThemedIcon("wallpaper").paint(&painter, area.toRect());
}

}  // namespace lomaris

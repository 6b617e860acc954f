#include "windows/spreadsheet/cell_delegate.h"

#include <QAbstractItemView>
#include <QPainter>
#include <cmath>

namespace lomaris {
namespace {

constexpr int kCornerSize = 7;  // pixels

const QColor kFault(0xd0, 0x30, 0x30);

QColor Blend(const QColor& under, const QColor& over, double share) {
  const auto mix = [share](int a, int b) {
    return static_cast<int>(std::lround(a + (b - a) * share));
  };
  return {mix(under.red(), over.red()), mix(under.green(), over.green()),
          mix(under.blue(), over.blue())};
}

QColor GroundOf(const CellLook& look, bool selected, const QPalette& palette,
                QPalette::ColorGroup group) {
  if (look.Head) return palette.color(group, QPalette::Button);
  QColor ground = palette.color(group, look.ReadOnly ? QPalette::Window : QPalette::Base);
  if (!look.Mark.isEmpty()) ground = Blend(ground, kFault, 0.25);
  if (selected) ground = Blend(ground, palette.color(group, QPalette::Highlight), 0.4);
  return ground;
}

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& option) {
  const QWidget* widget = option.widget;
  if (widget != nullptr && !widget->isEnabled()) return QPalette::Disabled;
  return (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
}

bool IsCurrent(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  return view != nullptr && view->currentIndex() == index;
}

void DrawCorner(QPainter& painter, const QRect& cell) {
  const QPoint corner = cell.topRight();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kFault);
  painter.drawPolygon(QPolygon(
      {corner + QPoint(1, 0), corner - QPoint(kCornerSize, 0), corner + QPoint(1, kCornerSize)}));
  painter.restore();
}

void DrawFrame(QPainter& painter, const QRect& cell, const QColor& colour) {
  painter.save();
  painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(cell.adjusted(1, 1, -1, -1));
  painter.restore();
}

}  // namespace

/// The current cell is framed and not tinted, so that within a selection it is seen where a key
/// would begin an edit.
void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const CellLook look = model_.LookOf(model_.PlaceOf(index));
  const QPalette::ColorGroup group = GroupOf(option);
  const bool current = IsCurrent(option, index);
  const bool selected = (option.state & QStyle::State_Selected) != 0 && !current;
  painter->fillRect(option.rect, GroundOf(look, selected, option.palette, group));
  if (!look.Text.isEmpty()) {
    const QRect place = option.rect.adjusted(kCellMargin, 0, -kCellMargin, 0);
    painter->setPen(option.palette.color(group, look.Head ? QPalette::ButtonText : QPalette::Text));
    const auto alignment = look.Number ? Qt::AlignRight : Qt::AlignLeft;
    const QString text = option.fontMetrics.elidedText(look.Text, Qt::ElideRight, place.width());
    painter->drawText(place, alignment | Qt::AlignVCenter | Qt::TextSingleLine, text);
  }
  if (!look.Mark.isEmpty()) DrawCorner(*painter, option.rect);
  if (current) {
    DrawFrame(*painter, option.rect, option.palette.color(group, QPalette::Highlight));
  }
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QString text = model_.LookOf(model_.PlaceOf(index)).Text;
  return {option.fontMetrics.horizontalAdvance(text) + 2 * kCellMargin + 2,
          option.fontMetrics.height() + kCellMargin};
}

}  // namespace lomaris

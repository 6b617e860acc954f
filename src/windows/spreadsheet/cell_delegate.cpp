#include "windows/spreadsheet/cell_delegate.h"

#include <QAbstractItemView>
#include <QPainter>
#include <algorithm>
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

QFont FontOf(const CellLook& look, const QStyleOptionViewItem& option) {
  QFont font = option.font;
  if (look.Bold) font.setBold(true);
  return font;
}

/// Of a text with more lines than its cell has room for, whole lines from its beginning.
void DrawLines(QPainter& painter, QRect place, int alignment, const QString& text) {
  const QFontMetrics metrics = painter.fontMetrics();
  const int flags = alignment | Qt::TextWordWrap;
  if (metrics.boundingRect(place, flags, text).height() <= place.height()) {
    painter.drawText(place, flags | Qt::AlignVCenter, text);
    return;
  }
  const QPoint middle = place.center();
  place.setHeight(std::max(1, place.height() / metrics.lineSpacing()) * metrics.lineSpacing());
  place.moveCenter(middle);
  painter.drawText(place, flags | Qt::AlignTop, text);
}

void DrawText(QPainter& painter, const CellLook& look, const QStyleOptionViewItem& option) {
  const QRect place = option.rect.adjusted(kCellMargin, 0, -kCellMargin, 0);
  const auto alignment = static_cast<int>(ToQt(look.Align));
  if ((option.features & QStyleOptionViewItem::WrapText) != 0) {
    DrawLines(painter, place, alignment, look.Text);
    return;
  }
  const QString text = painter.fontMetrics().elidedText(look.Text, Qt::ElideRight, place.width());
  painter.drawText(place, alignment | Qt::AlignVCenter | Qt::TextSingleLine, text);
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
    painter->setPen(option.palette.color(group, look.Head ? QPalette::ButtonText : QPalette::Text));
    painter->setFont(FontOf(look, option));
    DrawText(*painter, look, option);
  }
  if (!look.Mark.isEmpty()) DrawCorner(*painter, option.rect);
  if (current) {
    DrawFrame(*painter, option.rect, option.palette.color(group, QPalette::Highlight));
  }
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const CellLook look = model_.LookOf(model_.PlaceOf(index));
  const QFontMetrics metrics(FontOf(look, option));
  return {metrics.horizontalAdvance(look.Text) + 2 * kCellMargin + 2,
          option.fontMetrics.height() + kCellMargin};
}

}  // namespace lomaris

// The pointer in the table.

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>

#include "windows/spreadsheet/grid_view.h"

namespace lomaris {
namespace {

constexpr int kDragTick = 50;  // milliseconds

/// The line at a place along an axis; beyond an edge the line behind it.
template <class LineAt>
int LineNear(int place, int size, int lines, LineAt&& lineAt) {
  if (place < 0) return std::max(0, lineAt(0) - 1);
  const int line = lineAt(std::min(place, size - 1));
  if (line < 0) return lines - 1;
  return place < size ? line : std::min(line + 1, lines - 1);
}

}  // namespace

void GridView::mousePressEvent(QMouseEvent* event) {
  if (!EndEdit()) return;
  const QModelIndex index = indexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !index.isValid()) return;
  doubleClicked_ = false;
  const CellPlace place = model_->PlaceOf(index);
  const Selection& now = sheet_.Selected();
  if (event->modifiers().testFlag(Qt::ShiftModifier)) {
    Select({now.Row, now.Col, place.Row, place.Col});
  } else {
    SelectCell(place);
  }
  drag_.start(kDragTick);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  if (drag_.isActive()) DragTo(event->position().toPoint());
}

/// By the clock, so that a pointer outside scrolls on. A box that opens on the way may take the
/// release of the button.
void GridView::DragOn() {
  if (QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) {
    DragTo(viewport()->mapFromGlobal(QCursor::pos()));
  } else {
    drag_.stop();
  }
}

void GridView::DragTo(const QPoint& place) {
  const CellPlace to = CellNear(place);
  const Selection now = sheet_.Selected();
  if (to.Row != now.RowSel || to.Col != now.ColSel) Select({now.Row, now.Col, to.Row, to.Col});
}

CellPlace GridView::CellNear(const QPoint& place) const {
  const int row = LineNear(place.y(), viewport()->height(), model_->rowCount(),
                           [this](int at) { return rowAt(at); });
  const int col = LineNear(place.x(), viewport()->width(), model_->columnCount(),
                           [this](int at) { return columnAt(at); });
  return model_->PlaceOf(model_->index(row, col));
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const bool pressed = drag_.isActive();
  drag_.stop();
  if (std::exchange(doubleClicked_, false)) {
    Edit(EditStart::DoubleClick);
  } else if (pressed) {
    emit Click(sheet_.Selected().RowSel, sheet_.Selected().ColSel);
  }
}

/// The edit begins when the button is released, or the release would choose from a list that has
/// just opened under the pointer.
void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
  doubleClicked_ = drag_.isActive();
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
  if (!EndEdit()) return;
  if (event->reason() == QContextMenuEvent::Keyboard) return AskForMenu();
  const QModelIndex index = indexAt(event->pos());
  if (index.isValid() && !selectionModel()->isSelected(index)) SelectCell(model_->PlaceOf(index));
  emit MenuAsked(event->globalPos());
}

/// A right click on the head of a line that is not selected whole selects it first.
void GridView::OpenMenuOnHead(Qt::Orientation orientation, const QPoint& place) {
  if (!EndEdit()) return;
  const bool rows = orientation == Qt::Vertical;
  const QHeaderView* const head = rows ? verticalHeader() : horizontalHeader();
  const int section = head->logicalIndexAt(place);
  const CellArea area = sheet_.SelectedArea();
  const CellArea all = sheet_.AllCells();
  const bool whole = rows ? area.Cols() == all.Cols() : area.Rows() == all.Rows();
  const CellPlace cell = model_->PlaceOf(model_->index(rows ? section : 0, rows ? 0 : section));
  const bool within = rows ? cell.Row >= area.Top && cell.Row <= area.Bottom
                           : cell.Col >= area.Left && cell.Col <= area.Right;
  if (section >= 0 && !(whole && within)) {
    if (rows) {
      selectRow(section);
    } else {
      selectColumn(section);
    }
  }
  MarkWhole(orientation);
  emit MenuAsked(head->viewport()->mapToGlobal(place));
}

}  // namespace lomaris

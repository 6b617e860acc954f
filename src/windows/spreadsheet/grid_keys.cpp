// The keys of the table.

#include <QHeaderView>

#include "windows/core/qt_text.h"
#include "windows/spreadsheet/grid_view.h"
#include "windows/spreadsheet/typed_text.h"

namespace lomaris {
namespace {

struct CommandKey {
  QKeySequence::StandardKey Key;
  SheetCommand Command;
};

constexpr CommandKey kCommandKeys[] = {
    {QKeySequence::Cut, SheetCommand::Cut},
    {QKeySequence::Copy, SheetCommand::Copy},
    {QKeySequence::Paste, SheetCommand::Paste},
    {QKeySequence::Delete, SheetCommand::Clear},
    {QKeySequence::SelectAll, SheetCommand::SelectAll},
};

struct Arrow {
  int Key;
  Direction Way;
  int Rows, Cols;
};

constexpr Arrow kArrows[] = {
    {Qt::Key_Up, Direction::Up, -1, 0},
    {Qt::Key_Down, Direction::Down, 1, 0},
    {Qt::Key_Left, Direction::Left, 0, -1},
    {Qt::Key_Right, Direction::Right, 0, 1},
};

constexpr CellPlace kNowhere{-1, -1};

bool IsKey(const QKeyEvent& key, int wanted, Qt::KeyboardModifiers modifiers = {}) {
  return key.key() == wanted && (key.modifiers() & ~Qt::KeypadModifier) == modifiers;
}

}  // namespace

bool GridView::event(QEvent* event) {
  // The window's menu may have the same keys; in the table they are the table's.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    for (const CommandKey& each : kCommandKeys) {
      if (key.matches(each.Key)) event->accept();
    }
    for (const QKeySequence::StandardKey each : {QKeySequence::Undo, QKeySequence::Redo}) {
      if (key.matches(each)) event->accept();
    }
    if (event->isAccepted()) return true;
  }
  return QTableView::event(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  TakeChanges();
  const bool taken = !EndEdit() || RunShortcut(*event) || Move(*event) || BeginEdit(*event);
  event->setAccepted(taken);
}

bool GridView::RunShortcut(const QKeyEvent& key) {
  for (const CommandKey& each : kCommandKeys) {
    if (!key.matches(each.Key)) continue;
    Run(each.Command);
    return true;
  }
  const Qt::KeyboardModifiers ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;
  if (key.matches(QKeySequence::Undo)) {
    Travel(true);
  } else if (IsKey(key, Qt::Key_Y, Qt::ControlModifier) || IsKey(key, Qt::Key_Z, ctrlShift)) {
    Travel(false);
  } else if (IsKey(key, Qt::Key_F, Qt::ControlModifier)) {
    emit FindAsked();
  } else if (IsKey(key, Qt::Key_F3) || IsKey(key, Qt::Key_F3, Qt::ShiftModifier)) {
    emit FindNextAsked(key.modifiers().testFlag(Qt::ShiftModifier));
  } else if (IsKey(key, Qt::Key_Menu) || IsKey(key, Qt::Key_F10, Qt::ShiftModifier)) {
    const QRect cell = visualRect(currentIndex());
    emit MenuAsked(viewport()->mapToGlobal(cell.intersected(viewport()->rect()).center()));
  } else if (IsKey(key, Qt::Key_Space, Qt::ShiftModifier)) {
    SelectWhole(Axis::Rows);
  } else if (IsKey(key, Qt::Key_Space, Qt::ControlModifier)) {
    SelectWhole(Axis::Cols);
  } else {
    return false;
  }
  return true;
}

bool GridView::Move(const QKeyEvent& key) {
  if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) {
    if (!key.modifiers().testFlag(Qt::ControlModifier)) return false;
    return QAbstractScrollArea::focusNextPrevChild(key.key() == Qt::Key_Tab);
  }
  if (key.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return false;
  const bool extend = key.modifiers().testFlag(Qt::ShiftModifier);
  const Selection& now = sheet_.Selected();
  const CellPlace from = extend ? CellPlace{now.RowSel, now.ColSel} : CellPlace{now.Row, now.Col};
  const CellPlace to = Target(key.key(), key.modifiers().testFlag(Qt::ControlModifier), from);
  if (to == kNowhere) return false;
  extend ? Select({now.Row, now.Col, to.Row, to.Col}) : SelectCell(to);
  return true;
}

/// Where a key leads; beyond an edge it is held back by the sheet.
CellPlace GridView::Target(int key, bool jump, CellPlace from) const {
  for (const Arrow& arrow : kArrows) {
    if (key != arrow.Key) continue;
    if (jump) return JumpTarget(sheet_, from, arrow.Way);
    return {std::max(0, from.Row + arrow.Rows), std::max(0, from.Col + arrow.Cols)};
  }
  const CellArea all = sheet_.AllCells();
  if (key == Qt::Key_Home) return {jump ? all.Top : from.Row, all.Left};
  if (key == Qt::Key_End) return {jump ? all.Bottom : from.Row, all.Right};
  if (jump) return kNowhere;
  if (key == Qt::Key_Return || key == Qt::Key_Enter) return {from.Row + 1, from.Col};
  if (key == Qt::Key_PageUp) return {std::max(0, from.Row - PageRows()), from.Col};
  if (key == Qt::Key_PageDown) return {from.Row + PageRows(), from.Col};
  return kNowhere;
}

int GridView::PageRows() const {
  return std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize() - 1);
}

bool GridView::focusNextPrevChild(bool next) {
  TakeChanges();
  if (EndEdit()) StepAlong(next);
  return true;
}

/// The next cell, row by row.
void GridView::StepAlong(bool next) {
  const CellArea all = sheet_.AllCells();
  CellPlace place{sheet_.Selected().Row, sheet_.Selected().Col + (next ? 1 : -1)};
  if (place.Col > all.Right && place.Row < all.Bottom) place = {place.Row + 1, all.Left};
  if (place.Col < all.Left && place.Row > all.Top) place = {place.Row - 1, all.Right};
  SelectCell(place);
}

bool GridView::BeginEdit(const QKeyEvent& key) {
  if (IsKey(key, Qt::Key_F2)) {
    Edit(EditStart::Text);
    return true;
  }
  if (!IsTyped(key)) return false;
  Edit(EditStart::Typed, key.text());
  return true;
}

/// A character that is made of several keys comes this way.
void GridView::inputMethodEvent(QInputMethodEvent* event) {
  TakeChanges();
  if (EndEdit() && !event->commitString().isEmpty()) {
    Edit(EditStart::Typed, event->commitString());
  }
}

}  // namespace lomaris

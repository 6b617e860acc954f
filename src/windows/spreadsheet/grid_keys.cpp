// The keys of the table.

#include <QHeaderView>

#include "windows/core/qt_text.h"
#include "windows/spreadsheet/grid_view.h"
#include "windows/spreadsheet/key_kinds.h"

namespace lomaris {
namespace {

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

}  // namespace

void GridView::SetUpShortcuts() {
  const auto add = [this](const QList<QKeySequence>& keys, const std::function<void()>& act) {
    for (const QKeySequence& key : keys) shortcuts_[key] = act;
  };
  for (const CommandKey& each : kCommandKeys) {
    add(QKeySequence::keyBindings(each.Key), [this, &each] { Run(each.Command); });
  }
  // A second key for Delete on some platforms, and in forms that of a command of their own.
  shortcuts_.erase(Qt::CTRL | Qt::Key_D);
  add(kUndoKeys, [this] { Travel(true); });
  add(kRedoKeys, [this] { Travel(false); });
  add({Qt::CTRL | Qt::Key_F}, [this] { emit FindAsked(); });
  add({Qt::Key_F3}, [this] { emit FindNextAsked(false); });
  add({Qt::SHIFT | Qt::Key_F3}, [this] { emit FindNextAsked(true); });
  add(kMenuKeys, [this] { AskForMenu(); });
  add({Qt::SHIFT | Qt::Key_Space}, [this] { SelectWhole(Axis::Rows); });
  add({Qt::CTRL | Qt::Key_Space}, [this] { SelectWhole(Axis::Cols); });
  add({Qt::Key_F2}, [this] { Edit(EditStart::Text); });
}

/// Null for other keys.
const std::function<void()>* GridView::ShortcutOf(const QKeyEvent& key) const {
  const auto held = key.modifiers() & ~Qt::KeypadModifier;
  const auto found = shortcuts_.find(QKeyCombination(held, static_cast<Qt::Key>(key.key())));
  return found == shortcuts_.end() ? nullptr : &found->second;
}

bool GridView::event(QEvent* event) {
  // The window's menu may have the same keys; in the table they are the table's.
  if (event->type() == QEvent::ShortcutOverride &&
      ShortcutOf(static_cast<const QKeyEvent&>(*event)) != nullptr) {
    event->accept();
    return true;
  }
  if (event->type() == QEvent::KeyPress) {  // Tab does not come as far as `keyPressEvent`
    const auto& key = static_cast<const QKeyEvent&>(*event);
    emit KeyPressed(key.key(), key.modifiers());
  }
  return QTableView::event(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  TakeChanges();
  // What a cell's editor leaves over, a Shift key on its own for one, does not end its edit.
  const bool leftOver = editor_->IsOpen() && !hasFocus() && ShortcutOf(*event) == nullptr;
  if (leftOver) return event->ignore();
  event->setAccepted(!EndEdit() || RunShortcut(*event) || Move(*event) || BeginEdit(*event));
}

bool GridView::RunShortcut(const QKeyEvent& key) {
  const std::function<void()>* const act = ShortcutOf(key);
  if (act != nullptr) (*act)();
  return act != nullptr;
}

/// The menu at the current cell.
void GridView::AskForMenu() {
  const QRect cell = visualRect(currentIndex()).intersected(viewport()->rect());
  emit MenuAsked(viewport()->mapToGlobal(cell.center()));
}

bool GridView::Move(const QKeyEvent& key) {
  if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) {
    if (!key.modifiers().testFlag(Qt::ControlModifier)) return false;
    return QAbstractScrollArea::focusNextPrevChild(key.key() == Qt::Key_Tab);
  }
  if (key.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return false;
  const bool extend = key.modifiers().testFlag(Qt::ShiftModifier) && !IsEnter(key.key());
  const Selection& now = sheet_.Selected();
  const CellPlace from = extend ? CellPlace{now.RowSel, now.ColSel} : CellPlace{now.Row, now.Col};
  const CellPlace to = Target(key.key(), key.modifiers().testFlag(Qt::ControlModifier), from);
  if (to == kNowhere) return false;
  if (extend) {
    Select({now.Row, now.Col, to.Row, to.Col});
  } else {
    SelectCell(to);
  }
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
  if (IsEnter(key)) return {from.Row + 1, from.Col};
  if (key == Qt::Key_PageUp) return {std::max(0, from.Row - PageRows()), from.Col};
  if (key == Qt::Key_PageDown) return {from.Row + PageRows(), from.Col};
  return kNowhere;
}

int GridView::PageRows() const {
  return std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize() - 1);
}

bool GridView::focusNextPrevChild(bool next) {
  if (EndEdit()) StepAlong(next);
  return true;
}

/// To the right or to the left, as by an arrow: at the edge the sheet holds it back.
void GridView::StepAlong(bool next) {
  const Selection& now = sheet_.Selected();
  SelectCell({now.Row, now.Col + (next ? 1 : -1)});
}

bool GridView::BeginEdit(const QKeyEvent& key) {
  if (!IsTyped(key)) return false;
  Edit(EditStart::Typed, key.text());
  return true;
}

/// A character that is made of several keys comes this way.
void GridView::inputMethodEvent(QInputMethodEvent* event) {
  if (EndEdit() && !event->commitString().isEmpty()) {
    Edit(EditStart::Typed, event->commitString());
  }
}

}  // namespace lomaris

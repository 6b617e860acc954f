#include "windows/spreadsheet/edit_menu.h"

#include "windows/spreadsheet/key_kinds.h"

namespace lomaris {
namespace {

/// Shown in the menu; it is the table that takes the keys.
QKeySequence KeyOf(SheetCommand command) {
  for (const CommandKey& each : kCommandKeys) {
    if (each.Command == command) return each.Key;
  }
  return {};
}

}  // namespace

EditMenu::EditMenu(const Sheet& sheet, const SheetCommands& commands, QWidget* parent)
    : QMenu(parent), sheet_(sheet), commands_(commands) {
  setObjectName("mnuEdit");
  for (const EditMenuItem& item : kEditMenu) {
    if (item.LineBefore) addSeparator();
    QAction* entry =
        Entry(QString("mnuEditItem%1").arg(entries_.size()), tr(item.Caption), KeyOf(item.Command));
    connect(entry, &QAction::triggered, this, [this, &item] { emit CommandChosen(item.Command); });
    entries_ += entry;
  }
  addSeparator();
  QAction* chart = Entry(QString("mnuEditItem%1").arg(entries_.size()), tr("Sho&w Chart"));
  connect(chart, &QAction::triggered, this, &EditMenu::ChartChosen);
  addSeparator();
  undo_ = Entry("mnuUndo", tr("&Undo"), kUndoKeys.front());
  connect(undo_, &QAction::triggered, this, [this] { emit TravelChosen(true); });
  redo_ = Entry("mnuRedo", tr("&Redo"), kRedoKeys.front());
  connect(redo_, &QAction::triggered, this, [this] { emit TravelChosen(false); });
  QAction* find = Entry("mnuFind", tr("Fi&nd..."), QKeySequence(Qt::CTRL | Qt::Key_F));
  connect(find, &QAction::triggered, this, &EditMenu::FindChosen);
  connect(this, &QMenu::aboutToShow, this, &EditMenu::Offer);
}

QAction* EditMenu::Entry(const QString& name, const QString& caption, const QKeySequence& key) {
  QAction* entry = addAction(caption);
  entry->setObjectName(name);
  entry->setShortcut(key);
  entry->setShortcutContext(Qt::WidgetShortcut);
  entry->setShortcutVisibleInContextMenu(true);
  return entry;
}

void EditMenu::Offer() {
  for (const EditMenuItem& item : kEditMenu) {
    entries_[&item - kEditMenu]->setEnabled(commands_.Offered(item.Command));
  }
  undo_->setEnabled(sheet_.CanUndo());
  redo_->setEnabled(sheet_.CanRedo());
}

}  // namespace lomaris

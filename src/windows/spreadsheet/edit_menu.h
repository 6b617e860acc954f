#pragma once

#include <QMenu>

#include "spreadsheet/sheet_commands.h"

namespace lomaris {

/// The menu `mnuEdit` of a table: the commands, offered as they are when it opens, the chart, and
/// what goes back and finds.
class EditMenu : public QMenu {
  Q_OBJECT

 public:
  /// Both outlive this.
  EditMenu(const Sheet& sheet, const SheetCommands& commands, QWidget* parent);

 signals:
  void CommandChosen(SheetCommand command);
  void ChartChosen();
  void TravelChosen(bool undo);
  void FindChosen();

 private:
  QAction* Entry(const QString& name, const QString& caption, const QKeySequence& key = {});
  void Offer();

  const Sheet& sheet_;
  const SheetCommands& commands_;
  QList<QAction*> entries_;  // of the commands
  QAction* undo_;
  QAction* redo_;
};

}  // namespace lomaris

#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

#include "core/ports/settings.h"
#include "core/ports/ui.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// How an edit of a cell begins.
enum class EditStart {
  Typed,        ///< by a key, which is its first character
  Text,         ///< F2, with the cell's text
  DoubleClick,  ///< as by F2, but a file name is chosen in a dialog
};

/// The one cell of a table that is being edited, and the control over it: `Text1`, `Combo1` or
/// `DTPicker1`, by the cell's kind. A text that the cell refuses stays open: for a second it says
/// so and takes no keys, then the text as typed is back, and so is the focus.
class CellEditor : public QObject {
  Q_OBJECT

 public:
  /// All of them outlive this. The controls lie on `ground`, the focus goes back to its parent.
  CellEditor(Sheet& sheet, Ui& screen, Settings& settings, QWidget& ground);

  bool IsOpen() const { return open_ != nullptr; }
  QWidget* Control() const { return open_; }
  CellPlace Place() const { return place_; }

  /// Begins an edit where the cell can be edited and takes the key. `where`: the cell on `ground`.
  void Open(CellPlace place, const QRect& where, EditStart start, const QString& typed = {});

  /// The cell has moved.
  void MoveTo(const QRect& where);

  /// Stores what stands in the control and closes it. False: it was refused. A cell that is lost
  /// takes nothing.
  bool End();

  /// Lines of the sheet have come or gone from line `first` on.
  void FollowLines(Axis axis, int first);

  /// The cell has moved or gone, or has been closed to edits, while it was edited.
  bool IsLost() const;

  /// The cell stays as it was.
  void GiveUp();

  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  /// The edit has ended by a key, which now moves on in the table.
  void KeyPassed(int key, Qt::KeyboardModifiers modifiers);

 private:
  void OpenText(EditStart start, const QString& typed);
  void OpenChoice(const QString& typed);
  void OpenDate(ModelDateTime dateTime);
  void AskFileName();
  void Show(QWidget& control);
  void Close();

  bool Store();
  bool StoreText();
  bool StoreDate();
  bool IsRefused() const { return refusal_.isActive(); }
  void ShowRefusal();
  void EndRefusal();

  bool TakeKey(const QKeyEvent& key);
  bool TakeListKey(const QKeyEvent& key);
  bool TakeTyped(const QString& typed);
  void Finish(int key, Qt::KeyboardModifiers modifiers);
  void FocusLost(Qt::FocusReason reason);

  Sheet& sheet_;
  Ui& screen_;
  Settings& settings_;
  QWidget& ground_;
  QLineEdit* text_;
  QComboBox* choice_;
  QAbstractItemView* list_;  // of the choice
  QDateTimeEdit* date_;
  QWidget* open_ = nullptr;  // the one in use
  CellPlace place_;
  QRect where_;
  bool moved_ = false;                 // the cell, since the edit began
  std::optional<QString> textBefore_;  // what `Text1` began with; nothing when a key began it
  QDateTime dateBefore_;
  bool yearTyped_ = false;
  QTimer refusal_;
  QString refused_;  // the text while its refusal is shown
  bool ending_ = false;
};

}  // namespace lomaris

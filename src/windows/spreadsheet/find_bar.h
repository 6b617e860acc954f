#pragma once

#include <QLabel>
#include <QLineEdit>

#include "spreadsheet/sheet.h"

namespace lomaris {

/// Finds texts in a table. Enter leads to the next cell that holds the text, Shift+Enter to the one
/// before, Esc closes it.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  /// `sheet` outlives this.
  explicit FindBar(const Sheet& sheet, QWidget* parent = nullptr);

  void Open();

  /// Finds the next cell from the current one on; asks for the text where there is none yet.
  void FindNext(bool backward);

 signals:
  void Found(int row, int col);
  void Closed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Close();

  const Sheet& sheet_;
  QLineEdit* text_;
  QLabel* outcome_;
};

}  // namespace lomaris

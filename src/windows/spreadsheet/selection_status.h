#pragma once

#include <QTimer>
#include <QWidget>

#include "spreadsheet/sheet.h"

namespace lomaris {

/// One line that says where in a table the selection is and what its numbers come to. It waits for
/// a pause, so that a large selection does not hold up the keys.
class SelectionStatus : public QWidget {
  Q_OBJECT

 public:
  /// `sheet` outlives this.
  explicit SelectionStatus(const Sheet& sheet, QWidget* parent = nullptr);

  /// The selection, or what is in it, has changed.
  void Renew() { pause_.start(); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Count();

  const Sheet& sheet_;
  QString text_;
  QTimer pause_;
};

}  // namespace lomaris

#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>
#include <memory>
#include <string>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "support/scripted_ui.h"
#include "windows/spreadsheet/spreadsheet.h"

namespace lomaris {

enum TableCol { kText = 1, kDate, kNumber, kUpper, kChoice, kFile };

inline QWidget* Focus() {
  return QApplication::focusWidget();
}

inline void Press(int key, Qt::KeyboardModifiers held = {}) {
  QTest::keyClick(Focus(), static_cast<Qt::Key>(key), held);
  QApplication::processEvents();  // what the key has posted
  QApplication::processEvents();  // and what that has
}

inline void Type(const char* keys) {
  for (; *keys != 0; ++keys) QTest::keyClick(Focus(), *keys);
}

/// A window with a table of eight rows and a column of each kind between two fields.
class Table : public testing::Test {
 protected:
  Table() {
    sheet.SetNumberRows(true);
    sheet.SetColFormat(kDate, {FormatKind::DateTime});
    sheet.SetColFormat(kNumber, {FormatKind::Number, "0;99"});
    sheet.SetColFormat(kUpper, {FormatKind::UpperText});
    sheet.SetColFormat(kChoice, {FormatKind::Choice, "Yes;No;Perhaps"});
    sheet.SetColFormat(kFile, {FormatKind::FileName});
    auto* layout = new QVBoxLayout(window.get());
    layout->addWidget(before);
    layout->addWidget(table);
    layout->addWidget(after);
    table->Attach(sheet, ui, settings, copied);
    view = table->findChild<QTableView*>();
    text = table->findChild<QLineEdit*>("Text1");
    window->resize(900, 500);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    table->ShowCell(2, kNumber);
    table->setFocus();
  }

  QPoint Middle(int row, int col) const {
    return view->visualRect(view->model()->index(row - 1, col - 1)).center();
  }
  void ClickCell(int row, int col, Qt::KeyboardModifiers held = {}) {
    QTest::mouseClick(view->viewport(), Qt::LeftButton, held, Middle(row, col));
  }

  QAction* Entry(const QString& name) const {
    auto* menu = table->findChild<QMenu*>("mnuEdit");
    emit menu->aboutToShow();
    return menu->findChild<QAction*>(name);
  }

  const std::string& At(int row, int col) const { return sheet.TextMatrix(row, col); }

  /// The sheet's selection, which is to be the view's as well.
  std::string Selected() const {
    const Selection& s = sheet.Selected();
    const QItemSelectionRange shown = view->selectionModel()->selection().value(0);
    EXPECT_EQ(shown.top() + 1, s.Area().Top);
    EXPECT_EQ(shown.bottom() + 1, s.Area().Bottom);
    EXPECT_EQ(shown.width(), s.Area().Cols());
    return fmt::format("{},{}-{},{}", s.Row, s.Col, s.RowSel, s.ColSel);
  }

  Sheet sheet{9, 7};
  ScriptedUi ui;
  FakeSettings settings;
  CopiedDates copied;
  std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
  QLineEdit* before = new QLineEdit;
  Spreadsheet* table = new Spreadsheet;
  QLineEdit* after = new QLineEdit;
  QTableView* view = nullptr;
  QLineEdit* text = nullptr;
};

}  // namespace lomaris

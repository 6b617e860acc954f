#include <QHeaderView>
#include <QSignalSpy>

#include "windows/core/plot.h"
#include "windows_spreadsheet/table_fixture.h"

namespace lomaris {
namespace {

TEST_F(Table, KeysMoveAndExtendTheSelection) {
  // The keys, and from where to where the selection then reaches.
  const QString steps =
      "Return 3,3-3,3 Shift+Down 3,3-4,3 Shift+Right 3,3-4,4 Ctrl+Shift+Down 3,3-8,4 Left 3,2-3,2 "
      "Ctrl+Home 1,1-1,1 Up 1,1-1,1 Shift+Backtab 1,1-1,1 End 1,6-1,6 Shift+Backtab 1,5-1,5 "
      "Tab 1,6-1,6 Tab 1,6-1,6 Ctrl+Space 1,6-8,6 Shift+Left 1,6-8,5 PgDown 8,6-8,6 Tab 8,6-8,6 "
      "Shift+Space 8,1-8,6 Ctrl+A 1,1-8,6";
  const QStringList words = steps.split(' ');
  for (int i = 0; i < words.size(); i += 2) {
    const QKeyCombination key = QKeySequence(words[i])[0];
    Press(key.key(), key.keyboardModifiers());
    EXPECT_EQ(Selected(), words[i + 1].toStdString()) << words[i].toStdString();
  }
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Focus(), after);
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Focus(), view);
  Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Focus(), before);
}

TEST_F(Table, ThePointerSelectsCells) {
  ClickCell(2, 2);
  ClickCell(4, 3, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "2,2-4,3");
  QTest::mousePress(view->viewport(), Qt::LeftButton, {}, Middle(5, 1));
  QTest::mouseMove(view->viewport(), Middle(3, 2));
  QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, Middle(3, 2));
  EXPECT_EQ(Selected(), "5,1-3,2");
}

TEST_F(Table, CommandsWorkByKeyAndByMenu) {
  ui.Clipboard = "1\t2\n3\t4\n5\t6\n";
  table->ShowCell(7, kNumber);
  table->SendKeystroke(Qt::Key_V);
  Press(Qt::Key_Shift);
  EXPECT_EQ(At(8, kUpper), "4");
  EXPECT_EQ(Selected(), "7,3-8,4") << "what fits";
  QTest::mouseClick(view->verticalHeader()->viewport(), Qt::LeftButton, {},
                    {5, view->rowViewportPosition(6) + 5});
  Entry("mnuEditItem11")->trigger();
  QApplication::processEvents();
  EXPECT_EQ(At(8, kNumber), "1");
  EXPECT_EQ(view->model()->rowCount(), 9);
  Entry("mnuUndo")->trigger();
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(view->model()->rowCount(), 8);
  EXPECT_EQ(At(7, kNumber), "");
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(At(7, kNumber), "1");
  sheet.ReadOnly = true;
  QString offered;
  for (int i = 0; i <= 13; ++i) {
    const QAction* entry = Entry(QString("mnuEditItem%1").arg(i));
    if (entry->isEnabled()) offered += entry->text() + ' ';
  }
  EXPECT_EQ(offered, "&Copy Select A&ll S&how Stats Sho&w Chart ");
}

TEST_F(Table, ShowsChangesAtOnceAndOnlyCellsThatAreThere) {
  QApplication::processEvents();
  const QSignalSpy refreshed(table, &Spreadsheet::Refreshed);
  sheet.SetRows(5000);
  for (int row = 1; row < 5000; ++row) sheet.SetTextMatrix(row, kText, "x");
  QApplication::processEvents();
  EXPECT_EQ(view->model()->rowCount(), 4999);
  table->ShowCell(4999, kText);
  sheet.SetRows(3);
  sheet.SetCols(4);
  view->grab();  // before the view has been told
  QApplication::processEvents();
  EXPECT_EQ(view->model()->columnCount(), 3);
  EXPECT_EQ(Selected(), "2,1-2,1");
  sheet.SetFixed(0, 0);
  sheet.SetFixed(2, 2);
  QApplication::processEvents();
  ClickCell(1, 1);
  EXPECT_EQ(Selected(), "2,2-2,2") << "heads are not selected";
  EXPECT_EQ(refreshed.count(), 3);
}

TEST_F(Table, AHeadChoosesAWholeColumnOfASingleRow) {
  table->SetColWidthText(3, QString(30, '9'));
  const int wide = view->columnWidth(2);
  sheet.SetRows(2);
  QApplication::processEvents();
  QTest::mouseClick(view->horizontalHeader()->viewport(), Qt::LeftButton, {},
                    {view->columnViewportPosition(1) + 5, 5});
  Entry("mnuEditItem12")->trigger();
  QApplication::processEvents();
  EXPECT_TRUE(sheet.Cols() == 6 && view->columnWidth(1) == wide) << "widths move along";
}

TEST_F(Table, TellsOfKeysAndClicks) {
  QList<int> keys;
  QObject::connect(table, &Spreadsheet::KeyPressed, [&](int key) { keys += key; });
  const QSignalSpy clicks(table, &Spreadsheet::Click);
  Press(Qt::Key_Tab);
  Press(Qt::Key_F5);
  ClickCell(5, 2);
  EXPECT_EQ(keys, (QList<int>{Qt::Key_Tab, Qt::Key_F5}));
  EXPECT_EQ(clicks, (QList<QVariantList>{{5, 2}}));
}

TEST_F(Table, SizesAreKeptForTheirLines) {
  table->SetColWidth(2, 77);
  table->SetRowHeight(2, 55);
  QTest::mousePress(view->horizontalHeader()->viewport(), Qt::LeftButton, {},
                    {view->columnWidth(0), 5});
  QTest::mouseMove(view->horizontalHeader()->viewport(), {view->columnWidth(0) + 30, 5});
  QTest::mouseRelease(view->horizontalHeader()->viewport(), Qt::LeftButton, {}, {0, 5});
  const int dragged = table->ColWidth(1);
  EXPECT_NE(dragged, table->ColWidth(4));
  ASSERT_TRUE(sheet.InsertLines(Axis::Cols, 1, 1) && sheet.InsertLines(Axis::Rows, 1, 1));
  EXPECT_EQ(table->ColWidth(1), table->ColWidth(5));
  EXPECT_EQ(table->ColWidth(2), dragged);
  EXPECT_EQ(table->ColWidth(3), 77);
  EXPECT_TRUE(table->RowHeight(3) == 55 && table->RowHeight(2) < 55);
  sheet.DeleteLines(Axis::Rows, 3, 1);
  EXPECT_LT(table->RowHeight(3), 55);
  table->SetRowHeight(0, 60);
  EXPECT_EQ(table->RowHeight(0), 60);
}

TEST_F(Table, AFormGivesATableItsPropertiesBeforeItsSheet) {
  Spreadsheet form;
  const QMap<QString, QVariant> given = {{"FixedCols", 2},
                                         {"FixedRows", 3},
                                         {"Cols", 5},
                                         {"Rows", 10},
                                         {"NumberRows", true},
                                         {"FormatString", "|>Q"},
                                         {"ScrollBars", 0},
                                         {"AllowUserResizing", 2},
                                         {"BorderStyle", 0},
                                         {"BackStyle", 0},
                                         {"WordWrap", true},
                                         {"WhatsThisHelpID", 14},
                                         {"Enabled", false},
                                         {"ToolTipTextGrid", "t"},
                                         {"ReverseY2", true},
                                         {"XLabels", 2},
                                         {"BackColor", QColor(Qt::yellow)},
                                         {"ForeColor", QColor(Qt::blue)},
                                         {"Font", QFont("x", 20)}};
  const auto differing = [&] {
    QString names;
    for (const QString& name : given.keys()) {
      if (form.property(name.toLatin1()) != given[name]) names += name;
    }
    return names;
  };
  for (const QString& name : given.keys()) form.setProperty(name.toLatin1(), given[name]);
  EXPECT_EQ(differing(), "");
  Sheet own;
  form.Attach(own, ui, settings, copied);
  EXPECT_EQ(differing(), "");
  EXPECT_EQ(own.TextMatrix(0, 1) + own.TextMatrix(9, 0), "Q7");
  auto* grid = form.findChild<QTableView*>();
  EXPECT_TRUE(grid->wordWrap() && grid->frameShape() == QFrame::NoFrame);
  EXPECT_EQ(grid->verticalHeader()->sectionResizeMode(0), QHeaderView::Interactive);
  EXPECT_EQ(grid->horizontalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
  EXPECT_EQ(grid->palette().color(QPalette::Base), QColor(Qt::yellow));
  ASSERT_TRUE(own.InsertLines(Axis::Rows, 10, 1));
  form.setProperty("Cols", 6);
  EXPECT_EQ(own.Rows(), 11) << "what the form gave is not given again";
}

TEST_F(Table, TheChartTakesTheMenusKeysAndMakesWayForACell) {
  sheet.SetTextMatrix(2, kNumber, "1");
  table->setProperty("ChartType", 2);
  Entry("mnuEditItem13")->trigger();
  auto* chart = table->findChild<SheetChart*>();
  EXPECT_TRUE(chart->findChild<QAction*>("mnuChartType2")->isChecked());
  QApplication::clipboard()->clear();
  table->SendKeystroke(Qt::Key_C);
  EXPECT_FALSE(QApplication::clipboard()->pixmap().isNull());
  QKeyEvent copy(QEvent::ShortcutOverride, Qt::Key_C, Qt::ControlModifier);
  copy.ignore();
  QApplication::sendEvent(chart, &copy);
  EXPECT_TRUE(copy.isAccepted()) << "before the window's shortcuts";
  table->hide();
  sheet.SetTextMatrix(0, kNumber, "Flow");
  QApplication::processEvents();
  table->show();
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return chart->findChild<Plot*>()->plottable(0)->name() == "Flow"; }));
  table->ShowCell(5, kText);
  EXPECT_TRUE(view->isVisible());
}

TEST_F(Table, MarksAndFindsCells) {
  sheet.SetTextMatrix(6, kUpper, "XS12");
  table->SetMark([](int row, int) { return row == 3 ? QString("Not in the library") : QString(); });
  EXPECT_EQ(view->model()->index(2, 0).data(Qt::ToolTipRole), "Not in the library");
  Press(Qt::Key_F, Qt::ControlModifier);
  Type("s12");
  Press(Qt::Key_Return);
  EXPECT_EQ(Selected(), "6,4-6,4");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Focus(), view);
}

}  // namespace
}  // namespace lomaris

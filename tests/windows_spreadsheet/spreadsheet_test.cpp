#include "windows/spreadsheet/spreadsheet.h"

#include <QClipboard>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "support/scripted_ui.h"
#include "windows/core/plot.h"

namespace lomaris {
namespace {

enum Cols { kText = 1, kDate, kNumber, kUpper, kChoice, kFile };

QWidget* Focus() {
  return QApplication::focusWidget();
}

void Press(int key, Qt::KeyboardModifiers held = {}) {
  QTest::keyClick(Focus(), static_cast<Qt::Key>(key), held);
  QApplication::processEvents();  // what the key has posted
  QApplication::processEvents();  // and what that has
}

void Type(const char* keys) {
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

TEST_F(Table, KeysEndAnEditAndMoveOn) {
  const std::tuple<Qt::Key, const char*, const char*> cases[] = {
      {Qt::Key_Return, "5,3-5,3", "7.5"},   {Qt::Key_Tab, "4,4-4,4", "7.5"},
      {Qt::Key_Backtab, "4,2-4,2", "7.5"},  {Qt::Key_Up, "3,3-3,3", "7.5"},
      {Qt::Key_PageDown, "8,3-8,3", "7.5"}, {Qt::Key_Escape, "4,3-4,3", "1"},
  };
  for (const auto& [key, then, stored] : cases) {
    sheet.SetTextMatrix(4, kNumber, "1");
    table->ShowCell(4, kNumber);
    Type("7.50");
    QTest::keyClick(text, key);
    EXPECT_EQ(table->CurrentRow(), 4) << "the move comes behind what the edit has set off";
    QApplication::processEvents();
    EXPECT_EQ(Selected(), then);
    EXPECT_EQ(At(4, kNumber), stored);
    EXPECT_EQ(Focus(), view);
  }
}

TEST_F(Table, ARefusedTextKeepsTheEditAndTheFocus) {
  Type("500");
  Press(Qt::Key_Return);
  EXPECT_EQ(text->text(), "Invalid!");
  EXPECT_EQ(text->palette().color(QPalette::Base), QColor(Qt::red));
  ClickCell(6, 1);
  EXPECT_FALSE(table->EndEdit());
  QTest::mouseClick(after, Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(ui.Beeps, 1);
  EXPECT_EQ(Selected(), "2,3-2,3");
  EXPECT_EQ(Focus(), text);
  EXPECT_TRUE(QTest::qWaitFor([&] { return text->text() == "500"; }));
  Type("0");
  EXPECT_EQ(text->text(), "5000");
  after->setFocus();
  QApplication::processEvents();
  EXPECT_EQ(Focus(), text);
  EXPECT_TRUE(At(2, kNumber).empty() && !sheet.Modified);
  window->close();
  window.reset();
}

TEST_F(Table, KeysThatTheKindForbidsBeep) {
  Type("x4x2");
  EXPECT_EQ(text->text(), "42");
  EXPECT_EQ(ui.Beeps, 2);
  table->ShowCell(3, kUpper);
  EXPECT_EQ(At(2, kNumber), "42") << "an edit under way ends first";
  Type("xs");
  QTest::keyPress(text, Qt::Key_Shift);
  Type("1b");
  EXPECT_EQ(text->text(), "XS1B");
  sheet.SetReadOnlyRow(4, true);
  Press(Qt::Key_Return);
  Type("a");
  EXPECT_EQ(At(3, kUpper), "XS1B");
  EXPECT_FALSE(text->isVisible());
}

TEST_F(Table, AnEditIsGivenUpWhereItsCellIsLost) {
  const std::function<void()> losses[] = {[&] { sheet.ReadOnly = true; }, [&] { sheet.SetRows(3); },
                                          [&] { sheet.SetReadOnlyRow(2, true); }};
  for (const auto& lose : losses) {
    sheet.ReadOnly = false;
    table->ShowCell(8, kText);
    Type("abc");
    lose();
    EXPECT_TRUE(table->EndEdit() && !text->isVisible() && ui.Messages.empty());
  }
  sheet.Events.Change = [&] { table->hide(); };
  table->ShowCell(1, kText);
  Type("x");
  Press(Qt::Key_Return);
  EXPECT_EQ(At(1, kText), "x");
}

TEST_F(Table, ATextIsStoredAsTypedAndOnlyThen) {
  const std::string odd(40000, 'x');
  sheet.SetTextMatrix(2, kText, odd + "\ty");
  for (const std::string& stored : {odd + "\ty", odd + " y a b"}) {
    table->ShowCell(2, kText);
    Press(Qt::Key_F2);
    if (stored.ends_with('b')) text->insert("\r\na\nb");
    Press(Qt::Key_Return);
    EXPECT_TRUE(At(2, kText) == stored && std::exchange(sheet.Modified, false));
  }
}

TEST_F(Table, DatesChoicesAndFilesHaveControlsOfTheirOwn) {
  sheet.SetDate(2, kDate, *ParseDate("2031-05-09 06:30"));
  table->ShowCell(2, kDate);
  Press(Qt::Key_F2);
  Type("06");
  Press(Qt::Key_Return);
  EXPECT_EQ(sheet.DateOf(2, kDate), ParseDate("2031-06-09 06:30"));
  auto* picker = table->findChild<QDateTimeEdit*>();
  Press(Qt::Key_Up);
  Press(Qt::Key_F2);
  QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(picker, &wheel);
  picker->setSelectedSection(QDateTimeEdit::YearSection);
  Type("98");
  Press(Qt::Key_Return);
  EXPECT_EQ(sheet.DateOf(2, kDate), ParseDate("1998-06-09 06:30"));
  sheet.SetTextMatrix(4, kChoice, "maybe");
  table->ShowCell(4, kChoice);
  Press(Qt::Key_F2);
  Press(Qt::Key_Tab);
  EXPECT_EQ(At(4, kChoice), "maybe");
  sheet.SetTextMatrix(4, kChoice, "no");
  table->ShowCell(4, kChoice);
  Press(Qt::Key_F2);
  auto* list = table->findChild<QComboBox*>("Combo1");
  ASSERT_TRUE(list->view()->isVisible());
  QTest::keyClick(list->view(), Qt::Key_Down);
  QTest::keyClick(list->view(), Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(At(4, kChoice), "Perhaps");
  EXPECT_EQ(Selected(), "5,5-5,5");
  sheet.SetTextMatrix(3, kFile, "old.dat");
  ui.Files = {{}, {"/data/flow.dat"}};
  for (const char* expected : {"old.dat", "/data/flow.dat"}) {
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, Middle(3, kFile));
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, Middle(3, kFile));
    EXPECT_EQ(At(3, kFile), expected);
    EXPECT_EQ(Focus(), view);
  }
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

// Cells that are edited in their places.

#include <QDateTimeEdit>

#include "windows_spreadsheet/table_fixture.h"

namespace lomaris {
namespace {

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

}  // namespace
}  // namespace lomaris

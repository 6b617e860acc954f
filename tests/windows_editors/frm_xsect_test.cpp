#include "windows/editors/frm_xsect.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "editors/editor_fixture.h"
#include "windows/core/plot.h"
#include "windows/spreadsheet/spreadsheet.h"

namespace lomaris {
namespace {

constexpr const char* kName = "corvane_shapes.xsg";

class LibraryWindow : public EditorTest {
 protected:
  static void Open(frmXSect& editor) {
    editor.show();
    editor.Initialize({.FileName = kName});
  }
  void Trigger(const char* action) const { window.findChild<QAction*>(action)->trigger(); }
  /// What the line below the drawing says when all that waits has been shown.
  std::string Said() const {
    QTest::qWait(20);
    return window.findChild<QLabel*>("lblSection")->text().toStdString();
  }
  /// What the user does in the name dialog that opens next.
  static void InDialog(const std::function<void(QLineEdit& name)>& work) {
    QTimer::singleShot(0, [work] {
      auto& name = *QApplication::activeModalWidget()->findChild<QLineEdit*>("txtName");
      EXPECT_TRUE(QTest::qWaitFor([&] { return name.hasFocus(); }));
      work(name);
    });
  }
  frmXSect window{around};
  Spreadsheet* grid = window.findChild<Spreadsheet*>("ssXSect");
  QComboBox* entries = window.findChild<QComboBox*>("cboXSect");
};

TEST_F(LibraryWindow, UneditedIsSavedAsItWasRead) {
  std::string bytes = Example(kName);
  bytes.replace(bytes.find("Corvane River"), 8, "Corvane\xA0");  // a blank that fields make plain
  folder.Write(kName, bytes);
  Open(window);
  for (int i = 0; i < 15; ++i) Trigger("mnuViewNext");
  Trigger("mnuFileSave");
  EXPECT_TRUE(entries->currentIndex() == 15 && folder.Read(kName) == bytes);
  frmXSect second(around);
  Open(second);
  EXPECT_EQ(ui.LastMessage(), "You can open a given file only once per session.");
  EXPECT_TRUE(window.close() && !second.isVisible() && ui.Messages.size() == 1);
}

TEST_F(LibraryWindow, TheDrawingFollowsTheGrid) {
  const std::string whole = "Points: 13; width: 86.30 ft; depth: 14.20 ft";
  const std::string fault = "The station for point number 3 did not increase; please correct.";
  Open(window);
  EXPECT_EQ(Said(), whole);
  grid->ShowCell(3, 1);
  grid->setFocus();
  QTest::keyClick(QApplication::focusWidget(), '0');
  entries->setCurrentIndex(5);
  EXPECT_EQ(ui.LastMessage() + entries->currentText().toStdString(), fault + "AF-GORGE");
  EXPECT_EQ(Said(), fault);
  Trigger("mnuEditUndo");
  EXPECT_EQ(Said(), whole);
  auto* plot = window.findChild<Plot*>();
  const QPointF place(plot->xAxis->coordToPixel(17), plot->yAxis->coordToPixel(10.6));
  QTest::mouseClick(plot, Qt::LeftButton, {}, place.toPoint());
  EXPECT_EQ(grid->CurrentRow(), 4);
}

TEST_F(LibraryWindow, EntriesComeAndGo) {
  folder.Write(kName, "One\r\nTwo\r\nThree\r\n 0 \r\n");
  Open(window);
  InDialog([this](QLineEdit& name) {
    name.setText("NINE-LONG");
    const std::size_t asked = ui.Messages.size();
    for (const char* next : {"btnCancel", "txtName", "txtDescription"}) {
      name.window()->findChild<QWidget*>(next)->setFocus();
      QTest::qWait(20);
    }
    EXPECT_TRUE(name.hasFocus() && ui.Messages.size() == asked + 1) << "on the description alone";
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_TRUE(name.isVisible() && ui.Messages.size() == asked + 2);
    name.setText("CR-RUN1");
    QTest::keyClick(&name, Qt::Key_Return);
  });
  EXPECT_FALSE(grid->isEnabled());
  Trigger("mnuEditAdd");
  InDialog([](QLineEdit& name) {
    EXPECT_EQ(name.window()->windowTitle() + name.text(), "Rename Cross SectionCR-RUN1");
    name.setText("CR-NEW");
    QTest::keyClick(&name, Qt::Key_Return);
  });
  ui.Answers = {Answer::Yes, Answer::Yes, Answer::No};
  Trigger("mnuEditRename");
  EXPECT_EQ(entries->currentText() + hydro.Branches[1].XSects[1].Lookup.c_str(), "CR-NEWCR-NEW");
  Trigger("mnuEditDelete");
  EXPECT_FALSE(grid->isEnabled());
  EXPECT_TRUE(window.close());
}

}  // namespace
}  // namespace lomaris

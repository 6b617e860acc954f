#include "windows/editors/frm_qual.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include <gmock/gmock.h>

#include "editors/editor_fixture.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

class QualWindow : public EditorTest {
 protected:
  static constexpr const char* kName = "corvane_quality.qnp";

  void SetUp() override {
    LoadQuality();
    window = std::make_unique<frmQual>(around);
    window->show();
    window->Initialize({.FileName = kName, .Kind = "QNP"});
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  void TearDown() override {
    qual.Dirty = false;
    window->close();
  }

  template <class Control>
  Control* Find(const char* name) const {
    return window->findChild<Control*>(name);
  }
  void ShowPage(int page) const { Find<QTabWidget>("SSTabMainQ")->setCurrentIndex(page); }
  void Do(const char* action) const { Find<QAction>(action)->trigger(); }
  std::string Text(const char* name) const { return Find<QLineEdit>(name)->text().toStdString(); }

  /// Types into a cell of a grid on view.
  void Enter(const char* grid, int row, int col, const char* text) const {
    Find<Spreadsheet>(grid)->ShowCell(row, col);
    Find<Spreadsheet>(grid)->findChild<QTableView*>()->setFocus();
    for (const char c : std::string(text) + '\r') {
      QTest::keyClick(QApplication::focusWidget(), c);  // the first one opens the cell's editor
    }
    QApplication::processEvents();
  }

  std::unique_ptr<frmQual> window;
};

TEST_F(QualWindow, WhatIsEditedOnEachPageIsSavedAndNothingElse) {
  auto* branches = Find<QTabBar>("SSTabBranchQ");
  for (const int branch : {2, 1, 0}) branches->setCurrentIndex(branch);
  for (const bool turned : {true, false}) Find<QCheckBox>("chkXSectKinetics")->setChecked(turned);
  Do("mnuFileSave");
  EXPECT_EQ(folder.Read(kName), Example(kName));
  EXPECT_FALSE(window->HasUnsavedChanges());

  Find<QListWidget>("lstModelParameters")->item(15)->setCheckState(Qt::Checked);
  ShowPage(3);
  branches->setCurrentIndex(1);
  Enter("ssBranchKinetics", 5, 5, "12.5");
  Find<QLineEdit>("txtUSFile")->setText("other.bcf");
  ShowPage(4);
  Find<QCheckBox>("chkXSectKinetics")->setChecked(true);
  Enter("ssXSectKinetics", 2, 2, "77");
  EXPECT_THAT(Find<QLabel>("lblParameter")->text().toStdString(), HasSubstr("DISPC"));
  ShowPage(7);
  EXPECT_TRUE(branches->isVisible());
  Do("mnuFileSave");
  EXPECT_TRUE(ui.Messages.empty());
  EXPECT_EQ(qual.Branches[2].BranchKinetics[16], 12.5F);
  EXPECT_EQ(qual.Branches[2].XSects[2].XSectKinetics[1], 77);
  EXPECT_EQ(project.BCFilesQ[2].Upstream, "other.bcf");
  EXPECT_FALSE(qual.Bypass[16]);
}

TEST_F(QualWindow, StartsAtItsLeftAndTheKeyboardGoesThroughAllOfAPage) {
  for (int page = 0; page < 8; ++page) {
    ShowPage(page);
    for (const auto* grid : window->findChildren<QTableView*>()) {
      EXPECT_TRUE(!grid->isVisible() || grid->columnAt(0) == 0) << page;
    }
  }
  ShowPage(3);
  Find<QTabWidget>("SSTabMainQ")->tabBar()->setFocus();
  std::string order;
  for (int i = 0; i < 6; ++i) {
    QWidget* const from = QApplication::focusWidget();
    const bool isGrid = qobject_cast<QTableView*>(from) != nullptr;
    QTest::keyClick(from, Qt::Key_Tab, isGrid ? Qt::ControlModifier : Qt::NoModifier);
    order += QApplication::focusWidget()->accessibleName().toStdString() + "; ";
  }
  EXPECT_EQ(order,
            "Choices for the upstream boundary file; Downstream boundary file; Choices for the "
            "downstream boundary file; Filter; Branch kinetics; Branch; ");
}

TEST_F(QualWindow, ARefusedCellStaysAndADefaultComesBackByOneKey) {
  ShowPage(4);
  auto* branches = Find<QTabBar>("SSTabBranchQ");
  auto* filter = Find<QLineEdit>("txtFilterXSect");
  filter->setText("canopy");
  Spreadsheet* grid = Find<Spreadsheet>("ssXSectKinetics");
  Enter("ssXSectKinetics", 2, 5, "-3");
  branches->setCurrentIndex(2);
  EXPECT_EQ(branches->currentIndex(), 0) << "the cell's editor is open, with the text refused";
  filter->setText("rate");
  EXPECT_EQ(Text("txtFilterXSect"), "canopy");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  Enter("ssXSectKinetics", 2, 5, "3");
  grid->ShowCell(2, 5);
  Do("mnuEditResetDefault");
  branches->setCurrentIndex(2);
  EXPECT_EQ(branches->currentIndex(), 2);
  EXPECT_EQ(qual.Branches[1].XSects[1].XSectKinetics[13], 0);
}

TEST_F(QualWindow, BoundariesAndDatesTellWhatIsWrongWithThem) {
  ShowPage(3);
  EXPECT_FALSE(Find<QLineEdit>("txtUSFile")->isEnabled());
  EXPECT_THAT(Text("txtUSFile"), HasSubstr("connects as internal boundary condition to"));
  ShowPage(0);
  auto* start = Find<QDateTimeEdit>("DTPickerStart");
  start->setFocus();
  start->setDateTime(start->dateTime().addDays(-2));
  Find<QDateTimeEdit>("DTPickerEnd")->setFocus();
  QApplication::processEvents();
  EXPECT_THAT(ui.LastMessage(), HasSubstr("must not be earlier than for the hydrodynamic"));
  EXPECT_TRUE(window->HasUnsavedChanges());
}

}  // namespace
}  // namespace lomaris

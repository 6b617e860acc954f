#include "windows/editors/frm_hydro.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include <gmock/gmock.h>

#include "editors/editor_fixture.h"
#include "windows/editors/profile_plot.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

class HydroWindow : public EditorTest {
 protected:
  static constexpr const char* kName = "corvane_river.hnp";

  void Open(const std::string& name = kName) {
    window = std::make_unique<frmHydro>(around);
    window->show();
    window->Initialize({.FileName = name, .Kind = "HNP"});
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  void TearDown() override {
    hydro.Dirty = false;
    window->close();
  }

  template <class Control>
  Control* Find(const char* name) const {
    return window->findChild<Control*>(name);
  }
  QComboBox* List(const char* name) const { return Find<QComboBox>(name); }
  QLineEdit* Field(const char* name) const { return Find<QLineEdit>(name); }
  std::string Text(const char* name) const { return Field(name)->text().toStdString(); }
  void Do(const char* action) const { Find<QAction>(action)->trigger(); }
  void ShowBranchTab(int tab) const {
    Find<QTabWidget>("SSTabMainH")->setCurrentIndex(2);
    Find<QTabWidget>("SSTabBranchH")->setCurrentIndex(tab);
  }
  /// Types into a field and leaves it.
  void Retype(const char* name, const char* text) const {
    Field(name)->setFocus();
    Field(name)->selectAll();
    QTest::keyClicks(Field(name), text);
    Find<QTabWidget>("SSTabMainH")->setFocus();
    QApplication::processEvents();
  }
  QTableView* Cells() const { return Find<Spreadsheet>("ssXSect")->findChild<QTableView*>(); }

  /// Types into a cell of the cross sections, counted from 1.
  void Enter(int row, int col, const char* text) const {
    ShowBranchTab(0);
    Find<Spreadsheet>("ssXSect")->ShowCell(row, col);
    Cells()->setFocus();
    for (const char c : std::string(text) + '\r') {
      QTest::keyClick(QApplication::focusWidget(), c);  // the first one opens the cell's editor
    }
    QApplication::processEvents();
  }

  std::unique_ptr<frmHydro> window;
};

TEST_F(HydroWindow, UneditedIsSavedAsItWasReadAndEditsAreSavedInTheirPlace) {
  Open();
  for (const int entry : {1, 2, 0}) List("cboBranchH")->setCurrentIndex(entry);
  EXPECT_FALSE(hydro.Dirty);
  Do("mnuFileSave");
  EXPECT_EQ(folder.Read(kName), Example(kName));

  Enter(2, 4, "2222");
  List("cboBranchH")->setCurrentIndex(2);
  ShowBranchTab(1);
  Retype("txtUSValue", "05.50");
  EXPECT_EQ(Text("txtUSValue"), "5.5");
  Do("mnuFileSaveClose");
  EXPECT_FALSE(window->isVisible());
  EXPECT_THAT(folder.Read(kName), HasSubstr("CR-RIFF1\r\n2222\t248.7\t2.07"));
  EXPECT_EQ(hydro.Branches[3].USValue, 5.5F);
  EXPECT_TRUE(ui.Messages.empty());
}

TEST_F(HydroWindow, RefusedCellKeepsTheBranchOnViewAndTheWindowOpen) {
  Open();
  Enter(1, 1, "ThirteenChars");
  List("cboBranchH")->setCurrentIndex(1);
  EXPECT_EQ(List("cboBranchH")->currentIndex(), 0);
  EXPECT_THAT(ui.LastMessage(), HasSubstr("Invalid cross section name: ThirteenChars;"));
  EXPECT_EQ(Cells()->model()->index(0, 0).data().toString(), "ThirteenChars");
  for (const Answer answer : {Answer::Yes, Answer::Cancel}) {
    ui.Answers = {answer};
    EXPECT_FALSE(window->close());
  }
}

TEST_F(HydroWindow, AddsAndRenamesABranchInANetworkThatHasNone) {
  Open("new.hnp");
  EXPECT_FALSE(Find<QTabWidget>("SSTabBranchH")->isEnabled());
  ui.Answers = {Answer::Ok};
  ui.Texts = {"Main", "Trunk"};
  for (const char* action : {"mnuEditAddBranch", "mnuEditRenameBranch"}) Do(action);
  EXPECT_EQ(List("cboBranchH")->currentText(), "Trunk");
  EXPECT_TRUE(Find<QTabWidget>("SSTabBranchH")->isEnabled());
}

TEST_F(HydroWindow, DatesAndSeedYearAreCheckedOnceWhenTheyAreLeft) {
  Open();
  auto* end = Find<QDateTimeEdit>("DTPickerEnd");
  end->setFocus();
  end->setDateTime(QDateTime(QDate(2031, 3, 2), QTime(6, 30), Qt::UTC));
  EXPECT_EQ(Text("txtSimPeriod"), "04/01/25 00:00 to 03/02/31 06:30");
  end->setDateTime(QDateTime(QDate(2025, 3, 2), QTime(6, 30), Qt::UTC));
  Retype("txtSeedYear", "1970");
  ASSERT_EQ(ui.Messages.size(), 2u);
  EXPECT_THAT(ui.Messages[0].Text, HasSubstr("later than the starting date"));
  EXPECT_THAT(ui.LastMessage(), HasSubstr("no more than 50 years before"));
}

TEST_F(HydroWindow, MarksLookupsThatTheLibraryLacksAndDrawsWhatTheGridSays) {
  Open();
  Enter(3, 3, "NOWHERE");
  const auto tip = [&](int row) { return Cells()->model()->index(row, 2).data(Qt::ToolTipRole); };
  EXPECT_EQ(tip(2).toString(), "The cross section library has no section of this name.");
  EXPECT_NE(tip(1), tip(2));
  auto* picture = Find<ProfilePlot>("plotProfile");
  Enter(1, 4, "100");
  EXPECT_DOUBLE_EQ(picture->graph(1)->dataMainKey(1), 100);
  EXPECT_DOUBLE_EQ(picture->graph(3)->dataMainKey(0), 100);  // Enter has gone down
  Do("mnuViewProfile");
  EXPECT_FALSE(picture->isVisible());
  EXPECT_EQ((settings.Values[{"HNPStartup", "ShowProfile"}]), "0");
}

TEST_F(HydroWindow, DownstreamEndFollowsItsTypeAndTheReceivingBranch) {
  workbench.Editors = {"BCF"};
  Open();
  List("cboBranchH")->setCurrentIndex(1);
  ShowBranchTab(2);
  EXPECT_EQ(List("cboXSectName")->currentText(), "CR 19.88");
  EXPECT_EQ(Find<QLabel>("lblConflAngle")->text(), "Coef a i&n H=aQ^b:");
  EXPECT_FALSE(Field("txtDSValue")->isEnabled() || Find<QToolButton>("btnDSSelect")->isEnabled());
  List("cboDSType")->setCurrentIndex(3);
  List("cboDSBranch")->setCurrentIndex(0);
  EXPECT_THAT(ui.LastMessage(), HasSubstr("will significantly restructure"));
  EXPECT_TRUE(Field("txtDSValue")->isEnabled() && !List("cboXSectName")->isVisible());
  folder.Write("down.bcf", "");
  ui.Files = {{folder.Path("down.bcf")}};
  const auto offersEdit = [&] {
    Find<QToolButton>("btnDSSelect")->click();
    QApplication::activePopupWidget()->close();
    return Find<QAction>("mnuBCFPopupItem0")->isEnabled();
  };
  EXPECT_TRUE(!offersEdit() && Find<QAction>("mnuBCFPopupItem2")->isEnabled());
  Do("mnuBCFPopupItem1");
  EXPECT_TRUE(offersEdit());
}

}  // namespace
}  // namespace lomaris

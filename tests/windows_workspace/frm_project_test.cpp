#include "windows/workspace/frm_project.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QUrl>

#include <gmock/gmock.h>

#include "support/fake_ports.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

class FakeEditor : public EditorWindow {
 public:
  explicit FakeEditor(std::vector<EditRequest>& opened) : opened_(opened) {}
  void Initialize(const EditRequest& request) override { opened_.push_back(request); }

 private:
  std::vector<EditRequest>& opened_;
};

class ProjectWindow : public testing::Test {
 protected:
  void TearDown() override { workbench.CloseOtherWindows(); }

  void MakeWindow() {
    window = std::make_unique<frmProject>(project, hydro, tables, ui, settings, shell, workbench);
    window->show();
  }

  void OpenProject() {
    folder.Write("river.hnp", "");
    const std::string name = folder.Write(
        "river.prj",
        "HYDRODYNAMIC_INPUT_FILE: river.hnp\r\nWATER_QUALITY_INPUT_FILE: NULL\r\n"
        "VESKH_AUXILLARY_FILES:\r\n 2 \r\n1\t-3\r\nup.bcf\r\ndown.bcf\r\nold\\in.lat\r\nNULL\r\n"
        "old\\shapes.xsg\r\n\r\nPROJECT_DESCRIPTION:\r\nA river\r\n");
    ASSERT_TRUE(window->OpenProject(name));
  }

  template <class Widget>
  Widget* Find(const char* name) const {
    Widget* widget = window->findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  QAction* Action(const char* name) const { return Find<QAction>(name); }
  std::string Text(const char* name) const { return Find<QLineEdit>(name)->text().toStdString(); }

  TempFolder folder;
  ScriptedUi ui;
  FakeSettings settings;
  FakeShell shell;
  ProjectData project;
  HydroInput hydro;
  QtWorkbench workbench{hydro, project, ui, settings};
  Tables tables = InitTables(ui);
  std::unique_ptr<frmProject> window;
};

TEST_F(ProjectWindow, OffersOnlyWhatIsThere) {
  MakeWindow();
  const char* const always[] = {"mnuFileOpen", "mnuFileExit", "mnuHelpItem0", "mnuHelpItem6"};
  const char* const withProject[] = {"mnuFileSave",  "mnuFileSaveAs", "mnuFileClose",
                                     "mnuEditItem0", "mnuEditItem3",  "tbWhatsThis"};
  const char* const notYet[] = {"mnuFileNew",   "mnuFilePrint",       "mnuRunItem0",
                                "mnuRunItem4",  "tbBuildAux",         "mnuEditItem16",
                                "mnuEditItem5", "mnuFileCreateItem0", "mnuFileOpenItem4"};
  const auto expect = [&](const auto& names, bool enabled) {
    for (const char* name : names) EXPECT_EQ(Action(name)->isEnabled(), enabled) << name;
  };
  expect(always, true);
  expect(withProject, false);
  expect(notYet, false);
  OpenProject();
  expect(always, true);
  expect(withProject, true);
  expect(notYet, false);
  EXPECT_TRUE(Find<QMenu>("mnuEdit")->menuAction()->isEnabled());
}

class FakeRuns : public RunMenu {
 public:
  std::vector<int> Chosen;
  bool Running = false;
  void RunItem(int index) override { Chosen.push_back(index); }
  bool MayLeaveProject() override { return !Running; }
};

TEST_F(ProjectWindow, RunsModelsAndStaysWhileOneRuns) {
  FakeRuns runs;
  MakeWindow();
  window->OfferRunMenu(runs);
  const char* const items[] = {"mnuRunItem0", "mnuRunItem1", "mnuRunItem2", "mnuRunItem4",
                               "mnuRunItem6"};
  for (const char* item : items) EXPECT_FALSE(Action(item)->isEnabled()) << item;
  OpenProject();
  for (const char* item : items) Action(item)->trigger();
  EXPECT_EQ(runs.Chosen, (std::vector<int>{0, 1, 2, 4, 6}));
  runs.Running = true;
  const std::string name = project.FileName;
  for (const char* way :
       {"mnuFileOpen", "mnuFileOpenLast", "mnuFileClose", "mnuFileExit", "mnuEditItem3"}) {
    Action(way)->trigger();
  }
  EXPECT_FALSE(window->OpenProject(folder.Write("other.prj", "")));
  EXPECT_TRUE(project.FileName == name && ui.FileDialogs.empty() && ui.InputBoxes.empty());
  EXPECT_TRUE(window->isVisible());
  runs.Running = false;
  EXPECT_TRUE(window->close());
}

TEST_F(ProjectWindow, ShowsEverySlotAndSavesWhatIsChanged) {
  MakeWindow();
  OpenProject();
  const auto* boundaries = Find<QComboBox>("cboFile5");
  EXPECT_EQ(Text("txtFile0"), "river.hnp");
  EXPECT_EQ(Text("txtFile1"), "(Not Specified)");
  EXPECT_EQ(Text("txtFile2"), "old\\in.lat");
  EXPECT_EQ(boundaries->count(), 2);
  EXPECT_EQ(boundaries->itemText(1), "down.bcf     (DS Branch 3)");
  EXPECT_EQ(boundaries->currentIndex(), 0);
  EXPECT_FALSE(project.Dirty);
  const std::string before = folder.Read("river.prj");

  auto* description = Find<QPlainTextEdit>("txtDescription");
  description->setFocus();
  description->selectAll();
  QTest::keyClicks(description, "Two");
  QTest::keyClick(description, Qt::Key_Return);
  QTest::keyClicks(description, "lines");
  EXPECT_TRUE(project.Dirty);
  ui.Texts = {"OLD\\", "new/"};
  Action("mnuEditItem3")->trigger();
  EXPECT_EQ(Text("txtFile4"), "new/shapes.xsg");
  Action("mnuFileSave")->trigger();
  EXPECT_THAT(folder.Read("river.prj"), HasSubstr("\r\nTwo; lines\r\n"));
  EXPECT_THAT(folder.Read("river.prj"), HasSubstr("\r\nnew/in.lat\r\nNULL\r\nnew/shapes.xsg\r\n"));
  EXPECT_EQ(folder.Read("river.bak"), before);
  EXPECT_FALSE(project.Dirty);
}

TEST_F(ProjectWindow, PopUpOffersWhatTheSlotAllows) {
  std::vector<EditRequest> opened;
  for (const char* kind : {"HNP", "BCF", "LAT"}) {
    workbench.AddEditor(kind, Instances::Many, [&] { return new FakeEditor(opened); });
  }
  MakeWindow();
  OpenProject();
  struct Case {
    const char* Button;
    bool Edit, Create, Remove;
  };
  const Case cases[] = {{"btnBrowseSelect0", true, true, true},
                        {"btnBrowseSelect1", false, false, false},
                        {"btnBrowseSelect5", true, true, false},
                        {"btnBrowseSelect6", false, true, false},
                        {"btnBrowseSelect4", false, false, true}};
  for (const Case& c : cases) {
    Find<QToolButton>(c.Button)->click();
    EXPECT_EQ(Action("mnuOpenItem0")->isEnabled(), c.Edit) << c.Button;
    EXPECT_TRUE(Action("mnuOpenItem1")->isEnabled()) << c.Button;
    EXPECT_EQ(Action("mnuOpenItem2")->isEnabled(), c.Create) << c.Button;
    EXPECT_EQ(Action("mnuOpenItem3")->isEnabled(), c.Remove) << c.Button;
    QApplication::activePopupWidget()->close();
  }
  Action("mnuOpenItem3")->trigger();
  EXPECT_EQ(Text("txtFile4"), "(Not Specified)");
  EXPECT_TRUE(project.Dirty);

  Find<QToolButton>("btnBrowse0")->click();
  Action("mnuEditItem10")->trigger();  // names a file that does not exist
  ASSERT_EQ(opened.size(), 1u);
  EXPECT_EQ(opened[0].FileName, "river.hnp");
  EXPECT_EQ(ui.Messages.back().Title, "Error");
}

TEST_F(ProjectWindow, EditMenuReachesTheControlWithTheFocus) {
  MakeWindow();
  OpenProject();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  Find<QToolButton>("btnBrowseSelect0")->setFocus();
  for (const Qt::Key key : {Qt::Key_X, Qt::Key_C, Qt::Key_V}) {
    QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);  // nobody's: no harm
  }
  auto* text = Find<QLineEdit>("txtFile4");
  text->setFocus();
  text->setSelection(0, 4);
  Action("mnuEditItem0")->trigger();
  EXPECT_EQ(Text("txtFile4"), "shapes.xsg");
  Action("mnuEditItem2")->trigger();
  EXPECT_EQ(Text("txtFile4"), "old\\shapes.xsg");
}

TEST_F(ProjectWindow, AsksBeforeItCloses) {
  MakeWindow();
  OpenProject();
  Find<QLineEdit>("txtFile3")->setText("w.wit");
  ui.Answers = {Answer::Cancel};
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(window->isVisible());
  ui.Answers = {Answer::No};
  EXPECT_TRUE(window->close());
  EXPECT_FALSE((settings.Values[{"MainStartup", "Width"}]).empty());
}

TEST_F(ProjectWindow, OpensADroppedProjectAndListsOtherFiles) {
  MakeWindow();
  const std::string name = folder.Write("a.prj", "PROJECT_DESCRIPTION:\r\ndropped\r\n");
  const auto drop = [&](const std::string& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject*>(window.get())->event(&event);  // the application wants a drag before it
    QApplication::processEvents();                       // the work waits for the drop to end
  };
  drop(name);
  EXPECT_EQ(Find<QPlainTextEdit>("txtDescription")->toPlainText(), "dropped");
  EXPECT_EQ(window->windowTitle().toStdString(), "Lomaris - " + name);
  EXPECT_FALSE(project.Dirty);
  drop(folder.Write("notes.txt", ""));
  EXPECT_EQ(project.OtherCount, 1);
  Action("tbFileListClose")->trigger();
  EXPECT_EQ(project.OtherCount, 0);
}

}  // namespace
}  // namespace lomaris

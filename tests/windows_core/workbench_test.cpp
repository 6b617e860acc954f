#include <QApplication>
#include <QPointer>
#include <QScreen>

#include <gtest/gtest.h>

#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "windows/core/qt_text.h"
#include "windows/core/qt_workbench.h"
#include "windows/core/startup.h"
#include "windows/core/whats_this.h"
#include "windows/core/window_placement.h"

namespace lomaris {
namespace {

/// An editor as they all are: its caption is made from the file's name.
struct FakeEditor : EditorWindow {
  explicit FakeEditor(ScriptedUi& person) : Person(person) {}

  void Initialize(const EditRequest& request) override {
    setWindowTitle(ToQt(request.FileName));
    if (request.FileName == "bad.xsg") throw RuntimeError(ErrorNumber::TypeMismatch);
    if (FileAlreadyOpen(windowTitle(), Person)) close();
  }
  bool MayClose() override { return !Stays; }
  std::string FileName() const override { return Name; }
  bool HasUnsavedChanges() override { return Changed; }
  bool EditsNetwork() const override { return windowTitle().endsWith(".hnp"); }
  bool NeedsNetwork() const override { return Needs; }

  ScriptedUi& Person;
  bool Stays = false;
  bool Changed = false;
  bool Needs = false;
  std::string Name;
};

class WorkbenchTest : public testing::Test {
 protected:
  WorkbenchTest() {
    const auto factory = [this] { return last = new FakeEditor(ui); };
    workbench.AddEditor("HNP", Instances::One, factory);
    workbench.AddEditor("XSG", Instances::Many, factory);
    projectWindow.setWindowTitle("Lomaris - a.prj");
    projectWindow.show();
    workbench.SetProjectWindow(&projectWindow, [] {});
  }
  ~WorkbenchTest() override {
    workbench.CloseOtherWindows();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  /// Captions of the editors on the screen after another file has been opened.
  std::string OpenAfter(const std::string& file) {
    workbench.FileEdit({.FileName = file});
    QStringList captions;
    for (QWidget* each : QApplication::topLevelWidgets()) {
      if (qobject_cast<EditorWindow*>(each) && each->isVisible()) captions << each->windowTitle();
    }
    captions.sort();
    return FromQt(captions.join(' '));
  }

  ScriptedUi ui;
  FakeSettings settings;
  HydroInput hydro;
  ProjectData project;
  QPointer<FakeEditor> last;
  QWidget projectWindow;
  QtWorkbench workbench{hydro, project, ui, settings};
};

TEST_F(WorkbenchTest, SharesOneWindowOrMakesOnePerFile) {
  EXPECT_EQ(OpenAfter("a.hnp"), "a.hnp");
  EXPECT_EQ(OpenAfter("B.HNP (upstream)"), "B.HNP");
  EXPECT_EQ(OpenAfter("a.xsg"), "B.HNP a.xsg");
  EXPECT_EQ(OpenAfter("b.xsg"), "B.HNP a.xsg b.xsg");
  EXPECT_EQ(OpenAfter("a.xsg"), "B.HNP a.xsg b.xsg");
  EXPECT_EQ(ui.LastMessage(), "You can open a given file only once per session.");
  EXPECT_EQ(OpenAfter("a.abc"), "B.HNP a.xsg b.xsg");
  EXPECT_EQ(ui.LastMessage(), "There is no editor for this type of file: ABC");
  EXPECT_TRUE(workbench.CloseOtherWindows() && projectWindow.isVisible());
  EXPECT_EQ(OpenAfter("c.hnp"), "c.hnp");
  EXPECT_EQ(last->windowTitle(), "c.hnp") << "not in the closed window that is not deleted yet";
}

TEST_F(WorkbenchTest, LetsTheUserTryAgain) {
  ui.Answers = {Answer::Retry, Answer::Abort};
  EXPECT_EQ(OpenAfter("bad.xsg"), "");
  EXPECT_EQ(ui.Messages.size(), 2U);
}

TEST_F(WorkbenchTest, ReleasesTheNetworkFromItsEditorOrAsksItself) {
  OpenAfter("a.hnp");
  EXPECT_EQ(OpenAfter("b.xsg"), "a.hnp b.xsg");
  EXPECT_TRUE(workbench.EditsNetwork() && workbench.ReleaseNetwork());
  EXPECT_EQ(OpenAfter("c.xsg"), "b.xsg c.xsg");
  last->Needs = true;
  hydro.Dirty = true;
  ui.Answers = {Answer::Cancel, Answer::No};
  EXPECT_FALSE(workbench.ReleaseNetwork());
  EXPECT_EQ(ui.LastMessage(), "Save changes to Hydrodynamic input file?");
  EXPECT_TRUE(workbench.ReleaseNetwork() && hydro == HydroInput());
  EXPECT_EQ(OpenAfter("d.xsg"), "b.xsg d.xsg") << "what belongs to the network goes with it";
  OpenAfter("a.hnp");
  hydro.Dirty = true;
  EXPECT_TRUE(workbench.CloseOtherWindows() && !hydro.Dirty) << "its editor has asked";
}

TEST_F(WorkbenchTest, NamesWhatIsNotSavedAndTheNetworkOnce) {
  OpenAfter("a.hnp");
  last->Changed = hydro.Dirty = true;
  hydro.FileName = "a.hnp";
  OpenAfter("b.xsg");
  last->Changed = true;
  last->Name = "shapes/b.xsg";
  OpenAfter("c.xsg");
  EXPECT_EQ(workbench.UnsavedFiles(), (std::vector<std::string>{"a.hnp", "shapes/b.xsg"}));
  workbench.CloseOtherWindows();
  hydro.FileName = "a.hnp";
  hydro.Dirty = true;
  EXPECT_EQ(workbench.UnsavedFiles(), std::vector<std::string>{"a.hnp"}) << "no window has it";
  hydro.Dirty = false;
}

TEST_F(WorkbenchTest, PlacesEditorsAsTheyStoodAndStopsWhereOneStays) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  StorePosition(settings, "XSGStartup", {900'000, 750, 6000, 4500});
  workbench.FileEdit({.FileName = "a.xsg"});
  EXPECT_EQ(QRect(last->pos(), last->size()), QRect(screen.right() + 1 - 400, 50, 400, 300));
  last->Stays = true;
  EXPECT_FALSE(workbench.CloseOtherWindows());
  last->Stays = false;
  last->move(20, 30);
  EXPECT_TRUE(workbench.CloseOtherWindows());
  EXPECT_EQ((settings.Values[{"XSGStartup", "Left"}]), "300");
  workbench.FileEdit({.FileName = "b.xsg"});
  last->showMaximized();
  workbench.CloseOtherWindows();
  EXPECT_EQ((settings.Values[{"XSGStartup", "WindowState"}]), "0") << "of a normal window only";
}

TEST(Main, DoesWithoutItsHelpFileAfterOneWarning) {
  const TempFolder folder;
  ScriptedUi ui;
  FakeSettings settings;
  StorePosition(settings, "MainStartup", {.State = WindowState::Maximised});
  Tables tables;
  const auto loadProjectWindow = [&] {
    EXPECT_EQ(tables.MetShort[1], "Cloud") << "tables come before the first window";
    return std::make_unique<QWidget>();
  };
  const auto start = [&] {
    return Main(tables, loadProjectWindow, ui, settings, ToQt(folder.Path()));
  };
  EXPECT_TRUE(start()->isMaximized());
  EXPECT_EQ(ui.LastMessage(),
            "Warning: cannot find Lomaris.hlp in the program directory; context-sensitive help "
            "will not be available.");
  folder.Write("Lomaris.hlp", "; comment\r\n[frmAny]\r\nbtnEdit = Edits = it\xfc.\r\n");
  EXPECT_TRUE(start()->isVisible());
  EXPECT_EQ(ui.Messages.size(), 1U);
  QWidget window, button(&window);
  window.setObjectName("frmAny");
  button.setObjectName("btnEdit1");
  ApplyWhatsThis(window);
  EXPECT_EQ(FromQt(button.whatsThis()), "Edits = it\xc3\xbc.") << "without its index";
}

}  // namespace
}  // namespace lomaris

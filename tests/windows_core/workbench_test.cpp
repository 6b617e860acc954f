#include <QApplication>
#include <QPointer>
#include <QScreen>

#include <gmock/gmock.h>

#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "windows/core/qt_text.h"
#include "windows/core/qt_workbench.h"
#include "windows/core/startup.h"
#include "windows/core/window_placement.h"

namespace lomaris {
namespace {

/// An editor as they all are: its caption is made from the file's name.
class FakeEditor : public EditorWindow {
 public:
  explicit FakeEditor(lomaris::Ui& ui) : ui_(ui) { resize(300, 200); }

  void Initialize(const EditRequest& request) override {
    if (request.FileName == "bad.xsg") throw RuntimeError(ErrorNumber::TypeMismatch);
    setWindowTitle(ToQt(request.FileName));
    if (FileAlreadyOpen(windowTitle(), ui_)) close();
  }

  bool Stays = false;

 protected:
  bool MayClose() override { return !Stays; }

 private:
  lomaris::Ui& ui_;
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
  std::multiset<std::string> OpenAfter(const std::string& file) {
    workbench.FileEdit({.FileName = file});
    std::multiset<std::string> captions;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (qobject_cast<const EditorWindow*>(window) != nullptr && window->isVisible()) {
        captions.insert(FromQt(window->windowTitle()));
      }
    }
    return captions;
  }

  ScriptedUi ui;
  FakeSettings settings;
  HydroInput hydro;
  ProjectData project;
  QPointer<FakeEditor> last;
  QWidget projectWindow;
  QtWorkbench workbench{hydro, project, ui, settings};
};
using Captions = std::multiset<std::string>;

TEST_F(WorkbenchTest, SharesOneWindowOrMakesOnePerFile) {
  EXPECT_EQ(OpenAfter("a.hnp"), Captions({"a.hnp"}));
  EXPECT_EQ(OpenAfter("B.HNP (upstream)"), Captions({"B.HNP"}));
  EXPECT_EQ(OpenAfter("a.xsg"), Captions({"B.HNP", "a.xsg"}));
  EXPECT_EQ(OpenAfter("b.xsg"), Captions({"B.HNP", "a.xsg", "b.xsg"}));
  EXPECT_EQ(OpenAfter("a.xsg"), Captions({"B.HNP", "a.xsg", "b.xsg"}));
  EXPECT_EQ(ui.LastMessage(), "You can open a given file only once per session.");
  EXPECT_EQ(OpenAfter("a.qnp"), Captions({"B.HNP", "a.xsg", "b.xsg"})) << "has no editor";
  EXPECT_TRUE(workbench.CloseOtherWindows());
  EXPECT_TRUE(projectWindow.isVisible());
  EXPECT_EQ(OpenAfter("c.hnp"), Captions({"c.hnp"})) << "the closed window is not deleted yet";
}

TEST_F(WorkbenchTest, ReportsAFailureAndLetsTheUserTryAgain) {
  ui.Answers = {Answer::Retry, Answer::Abort};
  EXPECT_EQ(OpenAfter("bad.xsg").size(), 1U);
  EXPECT_EQ(ui.Messages.size(), 2U);
  EXPECT_THAT(ui.LastMessage(), testing::HasSubstr("in procedure \"FileEdit\""));
}

TEST_F(WorkbenchTest, PlacesEditorsAsTheyStoodAndStopsWhereOneStays) {
  StorePosition(settings, "XSGStartup", {1500, 750, 6000, 4500});
  workbench.FileEdit({.FileName = "a.xsg"});
  EXPECT_EQ(QRect(last->pos(), last->size()), QRect(100, 50, 400, 300));
  last->Stays = true;
  EXPECT_FALSE(workbench.CloseOtherWindows());
  last->Stays = false;
  last->move(20, 30);
  EXPECT_TRUE(workbench.CloseOtherWindows());
  EXPECT_EQ((settings.Values[{"XSGStartup", "Left"}]), "300");
  workbench.FileEdit({.FileName = "b.xsg"});
  last->showMaximized();
  workbench.CloseOtherWindows();
  EXPECT_EQ((settings.Values[{"XSGStartup", "Left"}]), "300") << "of a normal window only";
  EXPECT_EQ((settings.Values[{"XSGStartup", "WindowState"}]), "0");
}

TEST(WindowPlacement, BringsAWindowOntoAScreenThatIsThere) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  FakeSettings settings;
  StorePosition(settings, "MainStartup", {900'000, -3000, 6000, 4500});
  StorePosition(settings, "MainStartup", {.State = WindowState::Maximised});
  QWidget window;
  PlaceWindow(window, settings, "MainStartup");
  EXPECT_EQ(window.geometry(), QRect(screen.right() + 1 - 400, screen.top(), 400, 300));
  EXPECT_TRUE(window.isMaximized());
  window.show();
  EXPECT_EQ(PositionOf(window).Width, 6000) << "its size when it is not maximised";
}

TEST(Main, DoesWithoutItsHelpFileAfterOneWarning) {
  const TempFolder folder;
  ScriptedUi ui;
  FakeSettings settings;
  StorePosition(settings, "MainStartup", {0, 0, 6000, 4500});
  Tables tables;
  const auto start = [&](const ProjectWindowFactory& loadProjectWindow) {
    return Main(tables, loadProjectWindow, ui, settings, ToQt(folder.Path()));
  };
  const auto loadProjectWindow = [&] {
    EXPECT_EQ(tables.MetShort[1], "Cloud") << "tables come before the first window";
    return std::make_unique<QWidget>();
  };
  const auto window = start(loadProjectWindow);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(window->width(), 400);
  EXPECT_EQ(ui.LastMessage(),
            "Warning: cannot find Lomaris.hlp in the program directory; context-sensitive help "
            "will not be available.");
  folder.Write("Lomaris.hlp", "");
  start(loadProjectWindow);
  EXPECT_EQ(ui.Messages.size(), 1U);
  ui.Answers = {Answer::Abort};
  EXPECT_EQ(
      start([]() -> std::unique_ptr<QWidget> { throw RuntimeError(ErrorNumber::OutOfMemory); }),
      nullptr);
}

}  // namespace
}  // namespace lomaris

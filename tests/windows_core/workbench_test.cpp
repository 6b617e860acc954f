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

using testing::ElementsAre;

/// An editor as they all are: its caption is made from the file's name.
class FakeEditor : public EditorWindow {
 public:
  FakeEditor(lomaris::Ui& ui, std::vector<std::string>& opened) : ui_(ui), opened_(opened) {}

  void Initialize(const EditRequest& request) override {
    if (request.FileName == "bad.xsg") throw RuntimeError(ErrorNumber::TypeMismatch);
    opened_.push_back(request.FileName);
    setWindowTitle(ToQt("Editor - " + request.FileName));
    if (FileAlreadyOpen(windowTitle(), ui_)) close();
  }

  bool Stays = false;

 protected:
  bool MayClose() override { return !Stays; }

 private:
  lomaris::Ui& ui_;
  std::vector<std::string>& opened_;
};

class WorkbenchTest : public testing::Test {
 protected:
  WorkbenchTest() {
    const auto factory = [this] {
      last = new FakeEditor(ui, opened);
      last->resize(300, 200);
      return last.data();
    };
    workbench.AddEditor("HNP", Instances::One, factory);
    workbench.AddEditor("XSG", Instances::Many, factory);
    projectWindow.setWindowTitle("Lomaris - a.prj");
    projectWindow.show();
    workbench.SetProjectWindow(&projectWindow, [] {});
  }
  ~WorkbenchTest() override {
    if (last) last->Stays = false;
    workbench.CloseOtherWindows();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  int OpenEditors() const {
    return static_cast<int>(std::ranges::count_if(QApplication::topLevelWidgets(), [](QWidget* w) {
      return qobject_cast<EditorWindow*>(w) != nullptr && w->isVisible();
    }));
  }

  ScriptedUi ui;
  FakeSettings settings;
  HydroInput hydro;
  ProjectData project;
  std::vector<std::string> opened;
  QPointer<FakeEditor> last;
  QWidget projectWindow;
  QtWorkbench workbench{hydro, project, ui, settings};
};

TEST_F(WorkbenchTest, SharesOneWindowOrMakesOnePerFile) {
  EXPECT_FALSE(workbench.OffersEditor("QNP"));
  workbench.FileEdit({.FileName = "a.hnp"});
  const EditorWindow* hydroEditor = last;
  workbench.FileEdit({.FileName = "B.HNP (upstream)"});
  EXPECT_EQ(last, hydroEditor);
  workbench.FileEdit({.FileName = "a.xsg"});
  workbench.FileEdit({.FileName = "b.xsg"});
  EXPECT_EQ(OpenEditors(), 3);
  workbench.FileEdit({.FileName = "a.xsg"});
  EXPECT_EQ(OpenEditors(), 3) << "the second window of a file closes itself";
  EXPECT_EQ(ui.LastMessage(), "You can open a given file only once per session.");
  workbench.FileEdit({.FileName = " "});
  EXPECT_THAT(opened, ElementsAre("a.hnp", "B.HNP", "a.xsg", "b.xsg", "a.xsg"));

  EXPECT_TRUE(workbench.CloseOtherWindows());
  EXPECT_EQ(OpenEditors(), 0);
  EXPECT_TRUE(projectWindow.isVisible());
  workbench.FileEdit({.FileName = "c.hnp"});  // the closed window is not deleted yet
  EXPECT_EQ(OpenEditors(), 1);
}

TEST_F(WorkbenchTest, ReportsAFailureAndLetsTheUserTryAgain) {
  ui.Answers = {Answer::Retry, Answer::Abort};
  workbench.FileEdit({.FileName = "bad.xsg"});
  EXPECT_EQ(ui.Messages.size(), 2U);
  EXPECT_THAT(ui.LastMessage(), testing::HasSubstr("in procedure \"FileEdit\""));
  EXPECT_EQ(OpenEditors(), 1);
}

TEST_F(WorkbenchTest, PlacesEditorsAsTheyStoodAndStopsWhereOneStays) {
  settings.Values = {{{"XSGStartup", "Left"}, "1500"},
                     {{"XSGStartup", "Top"}, "750"},
                     {{"XSGStartup", "Width"}, "6000"},
                     {{"XSGStartup", "Height"}, "4500"}};
  workbench.FileEdit({.FileName = "a.xsg"});
  EXPECT_EQ(QRect(last->pos(), last->size()), QRect(100, 50, 400, 300));
  last->Stays = true;
  EXPECT_FALSE(workbench.CloseOtherWindows());
  last->Stays = false;
  last->move(20, 30);
  EXPECT_TRUE(workbench.CloseOtherWindows());
  EXPECT_EQ((settings.Values[{"XSGStartup", "Left"}]), "300");
  EXPECT_EQ((settings.Values[{"XSGStartup", "WindowState"}]), "0");

  workbench.FileEdit({.FileName = "b.xsg"});
  last->showMaximized();
  workbench.CloseOtherWindows();
  EXPECT_EQ((settings.Values[{"XSGStartup", "Left"}]), "300") << "of a normal window only";
}

TEST(WindowPlacement, BringsAWindowOntoAScreenThatIsThere) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  FakeSettings settings;
  settings.Values = {{{"MainStartup", "Left"}, "900000"},
                     {{"MainStartup", "Top"}, "-3000"},
                     {{"MainStartup", "Width"}, "6000"},
                     {{"MainStartup", "WindowState"}, "2"}};
  QWidget window;
  window.resize(500, 300);
  PlaceWindow(window, settings, "MainStartup");
  EXPECT_EQ(window.pos(), QPoint(screen.right() + 1 - 400, screen.top()));
  EXPECT_EQ(window.size(), QSize(400, 300));
  EXPECT_TRUE(window.isMaximized());
  window.show();
  const WindowPosition maximised = PositionOf(window);
  EXPECT_EQ(maximised.State, WindowState::Maximised);
  EXPECT_EQ(maximised.Width, 6000) << "its size when it is not";
}

TEST(Main, DoesWithoutItsHelpFileAfterOneWarning) {
  const TempFolder folder;
  ScriptedUi ui;
  FakeSettings settings;
  settings.Values[{"MainStartup", "Width"}] = "6000";
  Tables tables;
  const auto factory = [&]() -> std::unique_ptr<QWidget> {
    EXPECT_EQ(tables.MetShort[1], "Cloud") << "tables come before the first window";
    auto window = std::make_unique<QWidget>();
    window->setWindowTitle("Lomaris");
    return window;
  };
  auto window = Main(tables, factory, ui, settings, ToQt(folder.Path()));
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(window->width(), 400);
  ASSERT_EQ(ui.Messages.size(), 1U);
  EXPECT_EQ(ui.Messages[0].Title, "Error");
  EXPECT_EQ(ui.Messages[0].Text,
            "Warning: cannot find Lomaris.hlp in the program directory; context-sensitive help "
            "will not be available.");
  folder.Write("Lomaris.hlp", "");
  window = Main(tables, factory, ui, settings, ToQt(folder.Path()));
  EXPECT_EQ(ui.Messages.size(), 1U);

  ui.Answers = {Answer::Abort};
  const auto failing = []() -> std::unique_ptr<QWidget> {
    throw RuntimeError(ErrorNumber::OutOfMemory);
  };
  EXPECT_EQ(Main(tables, failing, ui, settings, ToQt(folder.Path())), nullptr);
}

}  // namespace
}  // namespace lomaris

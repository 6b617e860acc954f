#include "windows/run/run_windows.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include "run/exchange_writer.h"
#include "support/fake_ports.h"
#include "support/fake_run_ports.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Lets the windows have their turn, as a run does.
class LivelyUi : public ScriptedUi {
  void DoEvents() override { QApplication::processEvents(); }
};

template <class Window>
QPointer<Window> Shown() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* shown = qobject_cast<Window*>(window);
    if (shown != nullptr && shown->isVisible()) return shown;
  }
  return {};
}

class RunTest : public testing::Test {
 protected:
  RunTest() {
    for (const char* name : {"bin/TavreskH.exe", "bin/TavreskQ.exe"}) folder.Write(name, "");
    window.show();
    processes.OnTurn = [this](int turn) { return PlayModel(turn); };
  }

  /// Chooses an item, and clicks on buttons of the options window that it opens.
  void Choose(int item, const std::vector<const char*>& buttons = {"btnRun"}) {
    QTimer::singleShot(0, &window, [this, buttons] {
      options = QApplication::activeModalWidget();
      caption = options->windowTitle();
      for (const char* button : buttons) {
        if (Option("optWasp") != nullptr) linkageOffered = Option("optWasp")->isEnabled();
        Option(button)->click();
      }
    });
    runs.RunItem(item);
  }
  QAbstractButton* Option(const char* name) const {
    return options->findChild<QAbstractButton*>(name);
  }
  std::vector<std::string> Tails() const {
    std::vector<std::string> tails;
    for (const StartRequest& request : processes.Started) tails.push_back(request.Arguments);
    return tails;
  }

  bool PlayModel(int turn) {
    if (turn == 0) {
      model = std::make_unique<ModelFileWriter>(folder.Path("bin/veskout.tmp"), 0);
      model->SetSize(0, 2);
      model->SetFormat("Section|Flow|Depth");
      model->SetCommand("UPDATE");
    }
    model->SetUpdate("05/01/97", static_cast<float>(turn + 1));
    onTurn(turn);
    return turn < 30;
  }

  TempFolder folder;
  ProjectData project;
  LivelyUi ui;
  FakeSettings settings;
  FakeProcesses processes;
  FakeClock clock;
  FakeWorkbench workbench;
  QWidget window;
  QWidget* options = nullptr;
  QString caption;
  bool linkageOffered = false;
  RunWindows runs{{project, ui, settings, processes, clock, workbench, folder.Path("bin")},
                  settings,
                  window,
                  {[] { return true; }, [] {}}};
  std::unique_ptr<ModelFileWriter> model;
  std::function<void(int turn)> onTurn = [](int) {};
};

TEST_F(RunTest, OptionsMakeTheTails) {
  for (const int item : {kRunHydro, kRunQual, kRunBoth}) Choose(item);
  EXPECT_TRUE(linkageOffered && caption == "TavreskH & Q Options");
  EXPECT_THAT(Tails(),
              ElementsAre("  -LY -FR -S1 -IY -MY -EY -OY -BY", "  -PY -SU -TW -MY -EY -OY -BY",
                          "  -LY -FR -IY -MY -EY -OY -BY", "  -PN -SU -TW -MY -EY -OY -BY"));
  processes.Started.clear();
  ui.Texts = {"3", "none"};
  Choose(kRunHydro,
         {"optWasp", "optWasp", "chkHydroLink", "chkInitCond", "chkMassBal", "chkTVOut", "btnRun"});
  EXPECT_EQ(ui.InputBoxes.at(1).Proposal, "3") << "asked every time";
  EXPECT_FALSE(linkageOffered);
  Choose(kRunQual, {"chkHydroLink", "optHolly", "optDew", "chkErrors", "btnRun"});
  Choose(kRunBoth, {"optQuickest", "btnCancel"});
  EXPECT_THAT(Tails(),
              ElementsAre("  -LN -FW -S3 -IN -MY -EY -OY -BN", "  -PN -SH -TD -MY -EN -OY -BY"));
}

TEST_F(RunTest, MonitorOutlivesTheRunUntilItIsClosed) {
  std::vector<std::string> said;
  const auto listen = [&] {
    const auto monitor = Shown<frmProgress>();
    said.push_back(monitor->Caption());
    said.push_back(monitor->findChild<QPushButton*>("btnCancel")->text().toStdString());
  };
  onTurn = [&](int turn) {
    if (turn != 5) return;
    listen();
    ui.Answers = {Answer::No};
    EXPECT_FALSE(runs.MayLeaveProject());
    EXPECT_THAT(ui.LastMessage(), HasSubstr("A model is still running."));
  };
  Choose(kRunHydro);
  EXPECT_TRUE(runs.MayLeaveProject());
  listen();
  const auto monitor = Shown<frmProgress>();
  Choose(kRunQual);
  EXPECT_THAT(said, ElementsAre("4% - TavreskH Progress", "Cancel", "26% - TavreskH Progress",
                                "Close", "4% - TavreskQ Progress", "Cancel"));
  EXPECT_EQ(Shown<frmProgress>(), monitor);
  monitor->findChild<QPushButton*>("btnCancel")->click();
  QTest::qWait(0);
  EXPECT_EQ(monitor, nullptr);
}

TEST_F(RunTest, ClosingTheMonitorCancelsTheRun) {
  std::string heard;
  QPointer<frmProgress> monitor;
  onTurn = [&](int turn) {
    if (turn == 5) (monitor = Shown<frmProgress>())->close();
    if (turn == 25) heard = ReplyReader(folder.Path("bin/veskin.tmp")).Read();
  };
  Choose(kRunHydro);
  QTest::qWait(0);
  EXPECT_EQ(heard, "CANCEL");
  EXPECT_EQ(monitor, nullptr);
}

TEST_F(RunTest, PictureStandsInItsSizeUntilABoxOpens) {
  QPixmap picture(120, 80);
  picture.fill(Qt::blue);
  ASSERT_TRUE(picture.save(QString::fromStdString(folder.Path("bin/veskh.bmp"))));
  folder.Write("bin/veskq.bmp", "no picture");
  ui.Answers = {Answer::Yes};
  onTurn = [&](int turn) {
    const auto splash = Shown<frmSplash>();
    EXPECT_FALSE(turn == 25 && splash);
    if (turn != 4) return;
    EXPECT_TRUE(splash && splash->size() == QSize(120, 80));
    model->SetText(kText2Record, "");
    model->SetCommand("QUESTION");
  };
  Choose(kRunHydro);
  onTurn = [](int) { EXPECT_EQ(Shown<frmSplash>(), nullptr); };
  Choose(kRunQual);
}

TEST_F(RunTest, HungModelIsEndedByForceWhereNoWindowHasComeUp) {
  ui.Answers = {Answer::Yes};
  processes.OnTurn = [&](int turn) {
    EXPECT_FALSE(turn == 3 && runs.MayLeaveProject());
    return turn < 100;
  };
  Choose(kRunHydro);
  const auto monitor = Shown<frmProgress>();
  ASSERT_TRUE(monitor);
  EXPECT_THAT(monitor->findChild<QPlainTextEdit*>("lstMessages")->toPlainText().toStdString(),
              HasSubstr("TavreskH was ended by signal 9, without ever making veskout.tmp"));
}

TEST_F(RunTest, MissingProgramIsToldInTheMonitorToo) {
  std::filesystem::remove(folder.Path("bin/TavreskH.exe"));
  Choose(kRunHydro);
  EXPECT_EQ(ui.LastMessage(), "Unable to find file: TavreskH.exe");
  EXPECT_NE(Shown<frmProgress>(), nullptr);
}

}  // namespace
}  // namespace lomaris

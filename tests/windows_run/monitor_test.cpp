#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSlider>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>

#include "core/steady_clock.h"
#include "run/folder_lock.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "windows/core/qt_processes.h"
#include "windows/run/frm_progress.h"
#include "windows/run/frm_timed_dialog.h"
#include "windows/run/results_chart.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

class Monitor : public testing::Test {
 protected:
  template <class Widget>
  Widget* Find(const char* name) {
    return window.findChild<Widget*>(name);
  }
  std::string Cell(int row, int column) {
    return Find<QTableView>("flxGrid")->model()->index(row, column).data().toString().toStdString();
  }
  void Update(std::vector<float> first, std::vector<float> second) {
    window.BeginUpdate();
    window.ShowColumn(1, first);
    window.ShowColumn(2, second);
    window.EndUpdate();
  }
  /// Values of the line in the chart.
  std::vector<double> Drawn() {
    std::vector<double> values;
    for (const QCPGraphData& point : *Find<ResultsChart>("MSChart1")->graph(0)->data()) {
      values.push_back(point.value);
    }
    return values;
  }

  TempFolder folder;
  ScriptedUi ui;
  FakeSettings settings;
  QWidget owner;
  frmProgress window{ui, settings, &owner};
};

TEST_F(Monitor, GridAndChartShowTheLastUpdateOrNothing) {
  std::vector<int> chosen;
  QObject::connect(&window, &frmProgress::ColumnChosen,
                   [&](int entry) { chosen.push_back(entry); });
  window.SetUpGrid({"Section", "Flow", "Depth"}, {"1: Head", "1: Mouth"});
  auto* columns = Find<QComboBox>("cboColumns");
  window.show();
  EXPECT_TRUE(chosen.empty() && columns->isHidden());
  Update({12.345F, -1}, {3, NAN});
  EXPECT_EQ(Cell(0, 0) + Cell(0, 1) + Cell(1, 1) + Cell(1, 2), "1: Head12.35-1.00NaN");

  Find<QRadioButton>("optChart")->click();
  EXPECT_TRUE(columns->isVisible() && Find<QTableView>("flxGrid")->isHidden());
  EXPECT_EQ(Drawn(), (std::vector<double>{12.345F, -1})) << "what stood in the grid";
  EXPECT_EQ(Find<ResultsChart>("MSChart1")->yAxis->range(), QCPRange(-2, 20));
  window.ShowChart(std::vector<float>{7, 8}, 10);
  EXPECT_EQ(Drawn(), (std::vector<double>{7, 8}));
  columns->setCurrentIndex(1);
  EXPECT_EQ(chosen, std::vector<int>{1});
  EXPECT_TRUE(Drawn().empty()) << "not the other column's values";
  Find<QRadioButton>("optGrid")->click();
  EXPECT_EQ(Cell(0, 0) + Cell(0, 1), "1: Head") << "no values of an earlier update";
}

TEST_F(Monitor, SettingsComeBackWithoutTheIdleModelsInterval) {
  const QString tip = "Set number of milliseconds between updates (currently is %1)";
  auto* slider = Find<QSlider>("Slider1");
  window.show();
  EXPECT_EQ(slider->toolTip(), tip.arg(500));
  QTest::keyClick(slider, Qt::Key_Right);
  EXPECT_EQ(window.Interval(), 550);
  Find<QRadioButton>("optChart")->click();
  window.SetInterval(60000);
  EXPECT_EQ(slider->toolTip(), tip.arg(60000));
  window.resize(window.width() + 60, window.height() + 40);
  window.close();
  EXPECT_EQ(settings.Value("ProgressStartup", "Interval", ""), "550");
  const frmProgress next(ui, settings, &owner);
  EXPECT_TRUE(next.Interval() == 550 && !next.GridOn() && next.ShowResults());
  EXPECT_EQ(next.size(), window.size());
  settings.SetValue("ProgressStartup", "Interval", "-1e99");
  EXPECT_EQ(frmProgress(ui, settings, &owner).Interval(), 50);
}

TEST_F(Monitor, MessagesAreCopiedAndSaved) {
  window.AddMessage("  Time step 1");
  window.AddMessage("Message: Høy flow");
  auto* messages = Find<QPlainTextEdit>("lstMessages");
  ui.Files = {{folder.Path("kept.txt")}};
  Find<QAbstractButton>("btnSaveMessages")->click();
  EXPECT_EQ(folder.Read("kept.txt"), "  Time step 1\r\nMessage: H\xF8y flow\r\n");
  messages->selectAll();
  QTest::keyClick(messages, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().size(), 31);
}

TEST(TimedDialog, ClosesByItself) {
  frmTimedDialog dialog("Model", "Wait", 1);
  EXPECT_EQ(dialog.findChild<QLabel*>("lblTimeLeft")->text(),
            "This dialog will automatically close in 1 seconds...");
  EXPECT_EQ(dialog.exec(), QDialog::Accepted);
}

struct Script {
  const char* name;
  const char* text;
  const char* log;
  ProcessEnd end;
};

TEST(Programs, AreWatchedWithoutAnEventLoop) {
  const TempFolder folder;
  const Script scripts[] = {
      {"code and log",
       "printf '%s|' \"$@\"; pwd; echo bad >&2; exit 3",
       "-a|b c|",
       {.ExitCode = 3}},
      {"signal", "kill -9 $$", "", {.Signal = 9}},
      {"inherited", "ls -l /proc/$$/fd", "vesk.lck", {}},
      {"no input to wait for", "read line; echo $?", "1\n", {}},
  };
  QtProcesses processes;
  SteadyClock clock;
  FolderLock lock;
  ASSERT_TRUE(lock.Take(folder.Path("")));
  std::string reason;
  for (const Script& script : scripts) {
    const std::string program = folder.Write("m.exe", std::string("#!/bin/sh\n") + script.text);
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const auto id = processes.Start({.Program = program,
                                     .Arguments = "  -a  \"b c\"",
                                     .Directory = folder.Path(""),
                                     .LogFile = folder.Path("m.log"),
                                     .Inherited = lock.Descriptor()},
                                    reason);
    ASSERT_TRUE(id) << script.name;
    for (int i = 0; i < 200 && processes.IsActive(*id); ++i) clock.Sleep(10);
    EXPECT_FALSE(processes.IsActive(*id)) << script.name;
    EXPECT_EQ(processes.End(*id), script.end) << script.name;
    EXPECT_THAT(folder.Read("m.log"), HasSubstr(script.log)) << script.name;
  }
  EXPECT_THAT(folder.Read("m.log"), testing::Not(HasSubstr("bad"))) << "anew each time";
  EXPECT_FALSE(processes.Start({.Program = folder.Path("none.exe")}, reason));
  EXPECT_THAT(reason, HasSubstr("No such file"));
  EXPECT_FALSE(processes.Launch({.Program = folder.Path("none.exe")}));
}

}  // namespace
}  // namespace lomaris

#include "run_pictures.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QTimer>
#include <cmath>

#include "windows/run/frm_progress.h"
#include "windows/run/frm_timed_dialog.h"

namespace lomaris {
namespace {

constexpr int kSections = 120;

/// A flood on its way down three branches: flow, stage or speed at each cross section.
std::vector<float> WaveOf(double base, double height) {
  std::vector<float> values;
  for (int i = 0; i < kSections; ++i) {
    const double place = (i - 70) / 18.0;
    const double steps = i < 60 ? 0 : (i < 90 ? 0.15 : 0.4);  // where the branches meet
    values.push_back(static_cast<float>(base * (1 + steps) + height * std::exp(-place * place)));
  }
  return values;
}

void SendResults(frmProgress& monitor) {
  std::vector<std::string> labels;
  for (int i = 0; i < kSections; ++i) {
    const int branch = i < 60 ? 1 : (i < 90 ? 2 : 3);
    labels.push_back(std::to_string(branch) + ": Mile " + std::to_string(kSections - i) + ".4");
  }
  monitor.SetUpGrid({"Cross Section", "Flow, cfs", "Stage, ft", "Depth, ft", "Velocity, ft/s"},
                    labels);
  const std::vector<float> columns[] = {WaveOf(1840, 5200), WaveOf(412, 9.3), WaveOf(6.2, 9.3),
                                        WaveOf(1.9, 3.4)};
  monitor.BeginUpdate();
  for (int i = 0; i < 4; ++i) monitor.ShowColumn(i + 1, columns[i]);
  monitor.EndUpdate();
}

void ShowTheMonitor(QWidget& owner, Ui& ui, Settings& settings, Album& album,
                    const QString& ending) {
  frmProgress monitor(ui, settings, &owner);
  monitor.Restart("TavreskH Progress");
  monitor.AddMessage("Reading the network: 3 branches, 120 cross sections");
  monitor.AddMessage("Steady state found after 14 iterations");
  monitor.AddMessage("Time step shortened to 60 s at 03/14/97 02:00");
  monitor.SetDateTime("03/14/97 06:30");
  monitor.SetPercent(37);
  monitor.SetCaption("37% - TavreskH Progress");
  monitor.SetTimeRemaining("Time Remaining: 00:12:41");
  SendResults(monitor);
  monitor.ShowWindow();
  album.Keep(&monitor, "run_grid" + ending);
  monitor.findChild<QAbstractButton*>("optChart")->click();
  album.Keep(&monitor, "run_chart" + ending);
  monitor.findChild<QAbstractButton*>("optGrid")->click();
}

/// Chooses an item of the Run menu and leaves the options window that it opens.
void ShowTheOptions(QWidget& project, const char* item, Album& album, const QString& name) {
  QTimer::singleShot(0, &project, [&album, name] {
    QWidget* options = QApplication::activeModalWidget();
    album.Keep(options, name);
    if (options != nullptr) options->close();
  });
  project.findChild<QAction*>(item)->trigger();
}

void ShowTheTimedBox(QWidget& owner, Album& album, const QString& ending) {
  frmTimedDialog box("TavreskH", "The linkage file is written to corvane_river.hyd.", 30, &owner);
  box.show();
  album.Keep(&box, "run_timed_box" + ending);
}

}  // namespace

void ShowTheRun(QWidget& project, Ui& ui, Settings& settings, Album& album, const QString& ending) {
  ShowTheOptions(project, "mnuRunItem0", album, "run_options_h" + ending);
  ShowTheOptions(project, "mnuRunItem1", album, "run_options_q" + ending);
  ShowTheOptions(project, "mnuRunItem2", album, "run_options_both" + ending);
  ShowTheMonitor(project, ui, settings, album, ending);
  ShowTheTimedBox(project, album, ending);
}

}  // namespace lomaris

#pragma once

#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "auxiliary/cls_bmd.h"
#include "core/steady_clock.h"
#include "core/text.h"
#include "run/fake_monitor.h"
#include "run/run_desk.h"
#include "support/fake_ports.h"
#include "support/posix_processes.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {

/// Twenty seconds of it are one of the computer's.
class FastClock : public SteadyClock {
 public:
  static constexpr int kFactor = 20;
  double Seconds() override { return SteadyClock::Seconds() * kFactor; }
  void Sleep(int milliseconds) override { SteadyClock::Sleep(milliseconds / kFactor); }
};

/// Keeps all that the run went through.
class RunMonitor : public FakeMonitor {
 public:
  std::vector<float> Percents;
  std::vector<std::vector<float>> Flows;  ///< first column

  void SetPercent(float percent) override {
    FakeMonitor::SetPercent(percent);
    Percents.push_back(percent);
  }
  void ShowColumn(int column, std::span<const float> values) override {
    if (column == 1) Flows.emplace_back(values.begin(), values.end());
  }
};

class TurningUi : public ScriptedUi {
 public:
  std::function<void()> OnTurn;
  std::function<void()> OnAskFile;

  void DoEvents() override { OnTurn(); }
  std::vector<std::string> AskFile(const FileDialog& dialog) override {
    OnAskFile();
    return ScriptedUi::AskFile(dialog);
  }
};

/// The example's project, the real stand-ins in the program's folder, and a desk whose options
/// windows press their button at once.
class StandinRun : public testing::Test, protected RunView {
 protected:
  StandinRun() {
    std::filesystem::copy(LOMARIS_EXAMPLES "/three_branches", folder.Path("a"));
    std::filesystem::create_directory("bin");
    std::filesystem::create_symlink(LOMARIS_STANDIN "/TavreskH.exe", "bin/TavreskH.exe");
    std::filesystem::create_symlink(LOMARIS_STANDIN "/TavreskQ.exe", "bin/TavreskQ.exe");
    project.FileName = "a/three_branches.prj";
    project.HydroFile = "corvane_river.hnp";
    ui.OnTurn = [this] { Turn(); };
    // The model is to have moved on before the link looks again.
    ui.OnAskFile = [this] {
      monitor.Slider = 400 * FastClock::kFactor;
      askedUntil_ = SteadyClock().Seconds() + 0.4;
    };
  }

  /// A run at 1 ms a step, with what a script adds and what is done at each turn
  /// of the wait.
  void Run(
      int item, const std::string& script, std::function<void()> onTurn = [] {}) {
    onTurn_ = std::move(onTurn);
    folder.Write("bin/standin.txt", "pace 1\nstay 50\n" + script);
    folder.Write("bin/veskout.tmp", "left over");
    started_ = SteadyClock().Seconds();
    desk.RunItem(item);
  }

  /// What follows a beginning on those lines of an output file that have it.
  std::vector<std::string> Lines(const std::string& beginning,
                                 const std::string& file = "a/corvane_river.out") const {
    std::istringstream text(folder.Read(file));
    std::vector<std::string> found;
    for (std::string line; std::getline(text, line);) {
      if (line.starts_with(beginning)) found.push_back(TrimField(line.substr(beginning.size())));
    }
    return found;
  }

  clsBMD Results() {
    clsBMD results(ui);
    EXPECT_TRUE(results.ReadBMD(folder.Path("a/corvane_river.bmd"), false));
    return results;
  }

  bool SaveProject() override { return true; }
  void SaveForm() override {}
  void ShowOptions(OptionsWindow window) override {
    if (window == OptionsWindow::Hydro) desk.RunHydro(hydroOptions);
    if (window == OptionsWindow::Qual) desk.RunQual({});
    if (window == OptionsWindow::Both) desk.RunBoth({});
  }
  void HideOptions() override {}
  void UnloadOptions() override {}
  MonitorView& LoadMonitor(const std::string& caption) override {
    monitor = RunMonitor();
    monitor.Slider = kInterval;
    monitor.Title = caption;
    return monitor;
  }
  void UnloadMonitor() override {}
  void ShowMonitor() override {}
  void OfferClose() override {}
  void ShowSplash(const std::string&) override {}

  static constexpr int kInterval = 100;

  TempFolder folder;
  ProjectData project;
  TurningUi ui;
  FakeSettings settings;
  PosixProcesses processes;
  FastClock clock;
  FakeWorkbench workbench;
  RunMonitor monitor;
  HydroRunOptions hydroOptions;
  bool letsSlow = false;  ///< a tick without news lengthens more than the next interval
  RunDesk desk{{project, ui, settings, processes, clock, workbench, folder.Path("bin")}, *this};

 private:
  void Turn() {
    if (!letsSlow && SteadyClock().Seconds() > askedUntil_) monitor.Slider = kInterval;
    onTurn_();
    if (SteadyClock().Seconds() - started_ < 20) return;
    ADD_FAILURE() << "the run does not end";
    processes.KillAll();
  }

  std::function<void()> onTurn_;
  double started_ = 0;
  double askedUntil_ = 0;
};

}  // namespace lomaris

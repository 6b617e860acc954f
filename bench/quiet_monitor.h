#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/ports/processes.h"
#include "run/monitor_view.h"

namespace lomaris {

/// A monitor with nobody before it.
class QuietMonitor : public MonitorView {
 public:
  bool Grid = true;
  bool Cancel = false;

  void ShowWindow() override {}
  std::string Caption() const override { return {}; }
  void SetCaption(const std::string&) override {}
  bool CancelRequested() const override { return Cancel; }
  void ResetCancel() override {}
  bool ShowResultsChanged() const override { return true; }
  void ResetShowResultsChanged() override {}
  bool ShowResults() const override { return true; }
  bool GridOn() const override { return Grid; }
  int Interval() const override { return interval_; }
  void SetInterval(int milliseconds) override { interval_ = milliseconds; }
  void SetDateTime(const std::string&) override {}
  void SetPercent(float) override {}
  void SetTimeRemaining(const std::string&) override {}
  void AddMessage(const std::string&) override {}
  void SetUpGrid(const std::vector<std::string>&, const std::vector<std::string>&) override {}
  void BeginUpdate() override {}
  void EndUpdate() override {}
  void ShowColumn(int, std::span<const float>) override {}
  void ShowChart(std::span<const float>, double) override {}
  void ShowTimedDialog(const std::string&, const std::string&, int) override {}
  void HideSplash() override {}

 private:
  int interval_ = 500;
};

/// Starts nothing.
class QuietProcesses : public Processes {
 public:
  bool Launch(const StartRequest&) override { return false; }
  std::optional<ProcessId> Start(const StartRequest&, std::string&) override {
    return std::nullopt;
  }
  void Stop(ProcessId) override {}
  bool IsActive(ProcessId) override { return false; }
  ProcessEnd End(ProcessId) override { return {}; }
  void SetProcessWindowText(ProcessId, const std::string&) override {}
};

}  // namespace lomaris

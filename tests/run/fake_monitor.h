#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "run/monitor_view.h"

namespace lomaris {

/// A monitor that remembers what stands in it, and logs what was done with it.
class FakeMonitor : public MonitorView {
 public:
  std::string Title;
  std::string DateTime;
  std::string TimeRemaining;
  float Percent = -1;
  std::vector<std::string> Messages;
  bool Cancel = false;
  bool Results = true;
  bool ResultsChanged = false;
  bool Grid = true;
  int Slider = 500;
  std::vector<std::string> Titles;
  std::vector<std::string> Labels;
  std::map<int, std::vector<float>> Columns;
  std::vector<float> Charted;
  double AxisMaximum = 0;
  std::vector<std::string> Log;  ///< "show", "set up", "splash off", "title: text (3 s)"
  int DrawingHeld = 0;

  void ShowWindow() override { Log.push_back("show"); }
  std::string Caption() const override { return Title; }
  void SetCaption(const std::string& caption) override { Title = caption; }
  bool CancelRequested() const override { return Cancel; }
  void ResetCancel() override { Cancel = false; }
  bool ShowResultsChanged() const override { return ResultsChanged; }
  void ResetShowResultsChanged() override { ResultsChanged = false; }
  bool ShowResults() const override { return Results; }
  bool GridOn() const override { return Grid; }
  int Interval() const override { return Slider; }
  void SetInterval(int milliseconds) override { Slider = milliseconds; }
  void SetDateTime(const std::string& text) override { DateTime = text; }
  void SetPercent(float percent) override { Percent = percent; }
  void SetTimeRemaining(const std::string& text) override { TimeRemaining = text; }
  void AddMessage(const std::string& text) override { Messages.push_back(text); }
  void SetUpGrid(const std::vector<std::string>& titles,
                 const std::vector<std::string>& rowLabels) override {
    Log.push_back("set up");
    Titles = titles;
    Labels = rowLabels;
  }
  void BeginUpdate() override { ++DrawingHeld; }
  void EndUpdate() override { --DrawingHeld; }
  void ShowColumn(int column, std::span<const float> values) override {
    Columns[column] = {values.begin(), values.end()};
  }
  void ShowChart(std::span<const float> values, double axisMaximum) override {
    Charted = {values.begin(), values.end()};
    AxisMaximum = axisMaximum;
  }
  void ShowTimedDialog(const std::string& title, const std::string& text, int seconds) override {
    Log.push_back(title + ": " + text + " (" + std::to_string(seconds) + " s)");
  }
  void HideSplash() override { Log.push_back("splash off"); }
};

}  // namespace lomaris

#pragma once

#include <span>
#include <string>
#include <vector>

namespace lomaris {

/// The longest time between two updates, the right end of the slider.
inline constexpr int kLongestInterval = 60000;  // ms

/// What the run asks of the window that watches it. A window that the user has closed during the
/// run takes all this in silence, and keeps its request to cancel.
class MonitorView {
 public:
  virtual ~MonitorView() = default;

  /// Shows the window, with the grid or the chart as its settings say, above the project window.
  virtual void ShowWindow() = 0;

  virtual std::string Caption() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;

  // --- Requests of the user. They stay set until they are reset here.
  virtual bool CancelRequested() const = 0;
  virtual void ResetCancel() = 0;
  virtual bool ShowResultsChanged() const = 0;
  virtual void ResetShowResultsChanged() = 0;

  virtual bool ShowResults() const = 0;
  /// The grid is in view; else the chart is.
  virtual bool GridOn() const = 0;

  /// Value of the slider, ms from 1 to `kLongestInterval`.
  virtual int Interval() const = 0;
  virtual void SetInterval(int milliseconds) = 0;

  virtual void SetDateTime(const std::string& text) = 0;
  virtual void SetPercent(float percent) = 0;  ///< 0 to 100
  virtual void SetTimeRemaining(const std::string& text) = 0;
  virtual void AddMessage(const std::string& text) = 0;

  // --- Results.

  /// `titles` are those of the grid's columns, that of the row labels first; the columns behind it
  /// are what the chart offers, the first of them chosen.
  virtual void SetUpGrid(const std::vector<std::string>& titles,
                         const std::vector<std::string>& rowLabels) = 0;

  /// Between these two nothing is drawn.
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate() = 0;

  /// Puts values into a column of the grid, counted from 1, one per row. They are shown as
  /// `ResultText` says; they are gone when this returns.
  virtual void ShowColumn(int column, std::span<const float> values) = 0;

  /// Draws values by row number; the value axis ends at `axisMaximum`.
  virtual void ShowChart(std::span<const float> values, double axisMaximum) = 0;

  // --- Boxes.

  /// Shows a box that closes by itself after some seconds, and returns then.
  virtual void ShowTimedDialog(const std::string& title, const std::string& text, int seconds) = 0;

  /// Takes the model's picture off the screen, so that it does not stand before a box.
  virtual void HideSplash() = 0;
};

/// A per cent as the bar and the caption tell it.
float WholePercent(float percent);

/// A result as the grid shows it: two decimals, a zero before the point. What is no number is said
/// to be none.
std::string ResultText(float value);

/// Where the value axis of the chart ends: the next whole number of the power of ten of the largest
/// value, which is not below 0.
double AxisMaximum(float maxValue);

}  // namespace lomaris

// The command UPDATE of the link to a running model.

#include <algorithm>
#include <cmath>
#include <utility>

#include <fmt/format.h>

#include "core/run_time_error.h"
#include "core/text.h"
#include "run/duration.h"
#include "run/model_link.h"

namespace lomaris {
namespace {

constexpr double kSecondsPerDay = 86400;

/// The titles have no room for more columns.
constexpr std::int32_t kMostColumns = kTextWidth;

/// `count` titles from a heading; what it does not name has none. A mark before a title says how
/// its column is aligned.
std::vector<std::string> TitlesOf(std::string_view heading, std::size_t count) {
  std::vector<std::string> titles(count);
  for (std::string& title : titles) {
    const std::size_t end = std::min(heading.find('|'), heading.size());
    std::string_view text = Trim(heading.substr(0, end));
    if (!text.empty() && std::string_view("<^>").find(text.front()) != std::string_view::npos) {
      text.remove_prefix(1);
    }
    title = Trim(text);
    heading.remove_prefix(std::min(end + 1, heading.size()));
  }
  return titles;
}

/// All cross sections through the branches in order.
std::vector<std::string> RowLabels(const HydroInput& hydro) {
  std::vector<std::string> labels;
  for (int branch = 1; branch <= hydro.BranchCount; ++branch) {
    for (const XSectRec& xsect : hydro.Branches[branch].XSects) {
      labels.push_back(fmt::format("{}: {}", branch, xsect.Name));
    }
  }
  return labels;
}

[[noreturn]] void ThrowMismatch() {
  throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "results of another network");
}

/// Once; not of a number that the model has still to write.
void TellMismatch(const ModelLink& link, std::int32_t rows, std::size_t xsects) {
  if (rows < 1 || std::exchange(link.State.MismatchTold, true)) return;
  link.Monitor.AddMessage(
      fmt::format("The model sends results of {} cross sections, but the network on disk has {}: "
                  "they cannot be shown.",
                  rows, xsects));
}

void SetUpResults(const ModelLink& link) {
  ProgressState& state = link.State;
  if (!state.WindowShown) {
    state.BaseCaption = link.Monitor.Caption();
    link.Monitor.ShowWindow();
    state.WindowShown = true;
  }
  const ModelFile::ResultsSize size = link.Model.ReadSize();
  const std::string heading = link.Model.ReadFormat();
  const std::vector<std::string> labels = RowLabels(link.Hydro);
  if (size.Cols < 1 || size.Cols > kMostColumns) ThrowMismatch();
  if (size.Rows < 0 || static_cast<std::size_t>(size.Rows) != labels.size()) {
    TellMismatch(link, size.Rows, labels.size());
    ThrowMismatch();
  }
  state.Cols = size.Cols;
  state.Values.assign(labels.size(), 0);
  link.Monitor.SetUpGrid(TitlesOf(heading, static_cast<std::size_t>(size.Cols) + 1), labels);
  state.ChartColumn = 1;
  state.RescaleChart = true;
  state.MaxValue = 0;
  state.Start = link.Time.Seconds();
  state.TimeLeft = 1e30F;
  state.ResultsReady = true;
}

/// Half as long again, to a whole number.
void LengthenInterval(MonitorView& monitor) {
  const double longer = std::nearbyint(monitor.Interval() * 1.5);
  monitor.SetInterval(static_cast<int>(std::min<double>(longer, kLongestInterval)));
}

void ShowPercent(const ModelLink& link, float percent) {
  const float whole = WholePercent(percent);
  if (whole == WholePercent(link.State.LastPercent)) return;
  const std::string text = fmt::format("{:.0f}% - {}", whole, link.State.BaseCaption);
  link.Monitor.SetCaption(text);
  link.Programs.SetProcessWindowText(link.State.Process, text + " (Fortran)");
}

void ShowTimeLeft(const ModelLink& link, float percent) {
  ProgressState& state = link.State;
  if (percent < 1) {
    state.Calculating = true;
    link.Monitor.SetTimeRemaining("Calculating...");
    return;
  }
  if (std::exchange(state.Calculating, false)) state.RescaleChart = true;
  const double now = link.Time.Seconds();
  const double estimate = (100.0 / percent - 1) * (now - state.Start) / kSecondsPerDay;
  const double elapsed = (now - state.LastUpdate) / kSecondsPerDay;
  state.TimeLeft = static_cast<float>(SteadyTimeLeft(state.TimeLeft, estimate, elapsed));
  state.LastUpdate = now;
  link.Monitor.SetTimeRemaining("Time Remaining: " + TimeLeftText(state.TimeLeft));
}

void ShowColumnInChart(const ModelLink& link) {
  ProgressState& state = link.State;
  if (state.ChartColumn < 1 || state.ChartColumn > state.Cols) ThrowMismatch();
  link.Model.ReadColumn(state.ChartColumn, state.Values);
  for (const float value : state.Values) {
    if (value > state.MaxValue && std::isfinite(value)) state.MaxValue = value;
  }
  link.Monitor.ShowChart(state.Values, AxisMaximum(state.MaxValue));
}

/// No drawing of the monitor while it lives.
class DrawingHeld {
 public:
  explicit DrawingHeld(MonitorView& monitor) : monitor_(monitor) { monitor_.BeginUpdate(); }
  ~DrawingHeld() { monitor_.EndUpdate(); }
  DrawingHeld(const DrawingHeld&) = delete;
  DrawingHeld& operator=(const DrawingHeld&) = delete;

 private:
  MonitorView& monitor_;
};

void ShowResults(const ModelLink& link) {
  ProgressState& state = link.State;
  if (std::exchange(state.RescaleChart, false)) state.MaxValue = 0;
  const DrawingHeld held(link.Monitor);
  if (!link.Monitor.GridOn()) {
    ShowColumnInChart(link);
    return;
  }
  for (int column = 1; column <= state.Cols; ++column) {
    link.Model.ReadColumn(column, state.Values);
    link.Monitor.ShowColumn(column, state.Values);
  }
}

}  // namespace

void TakeUpdate(const ModelLink& link) {
  if (!link.State.ResultsReady) SetUpResults(link);
  const ModelFile::UpdateFields update = link.Model.ReadUpdate();
  if (!std::isfinite(update.Percent)) throw RuntimeError(ErrorNumber::Overflow);
  const float percent = std::clamp(update.Percent, 0.0F, 100.0F);
  if (percent == link.State.LastPercent) {
    LengthenInterval(link.Monitor);
    return;
  }
  link.Monitor.SetDateTime(update.DateTime);
  link.Monitor.SetPercent(percent);
  ShowPercent(link, percent);
  link.State.LastPercent = percent;
  ShowTimeLeft(link, percent);
  if (link.Monitor.ShowResults()) ShowResults(link);
  if (link.Monitor.ShowResultsChanged()) {
    link.Reply.Write(link.Monitor.ShowResults() ? kShowResults : kHideResults);
    link.Monitor.ResetShowResultsChanged();
  }
}

}  // namespace lomaris

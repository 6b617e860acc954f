#pragma once

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "core/ports/processes.h"

namespace lomaris {

/// What is known of one run of a model program; a new one for each.
struct ProgressState {
  ProcessId Process = 0;
  double Start = 0;                        ///< s by the clock, of the first update
  double LastUpdate = 0;                   ///< s, of the last one that told the time left
  bool FileSeen = false;                   ///< the model's file has been opened
  bool MismatchTold = false;               ///< results of another network have been named
  bool WindowShown = false;                ///< the first update has been seen
  bool ResultsReady = false;               ///< grid and chart are set up
  bool Abort = false;                      ///< the model ends, and none is to follow
  bool Calculating = false;                ///< the remaining time is not told yet
  float TimeLeft = 1e30F;                  ///< days, as shown last
  std::string BaseCaption;                 ///< of the monitor when the run began
  std::optional<std::string> LastMessage;  ///< text of the last question or message box
  std::string FileQuestion;                ///< text of the last question for a file
  std::string FileAnswer;                  ///< the answer to it
  int Cols = 0;                            ///< result columns
  std::vector<float> Values;               ///< one column, a value per row
  float MaxValue = 0;                      ///< largest charted value since the last rescale
  int ChartColumn = 1;                     ///< column in the chart, counted from 1
  bool RescaleChart = false;               ///< the axis is to be fitted anew

  /// Per cent of the last accepted update; at first one that no model sends.
  float LastPercent = std::numeric_limits<float>::lowest();
};

}  // namespace lomaris

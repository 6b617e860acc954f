#pragma once

namespace lomaris {

enum class ChartType { Line, Area, Bar, Pie, XY };

/// How a table's chart looks; kept from one showing to the next.
struct ChartState {
  ChartType Type = ChartType::Line;
  bool SeriesInRows = false;
  bool ReverseX = false;   ///< turns an axis around
  bool ReverseY = false;   ///< the left axis
  bool ReverseY2 = false;  ///< the right axis
  int XLabels = -1;        ///< column, or row of series in rows, with the labels; -1: not chosen
  bool Legend = true;

  bool operator==(const ChartState&) const = default;
};

}  // namespace lomaris

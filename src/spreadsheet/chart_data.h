#pragma once

#include <optional>
#include <string>
#include <vector>

#include "spreadsheet/chart_state.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// A column of the sheet, or a row where series are in rows.
struct ChartSeries {
  std::string Name = {};
  int Line = 0;                     ///< the column, or row
  std::vector<double> Values = {};  ///< one for each position; not a number: a gap
};

/// A point of the chart by its series and its position, both from 0.
struct ChartPoint {
  int Series = 0;
  int Position = 0;

  bool operator==(const ChartPoint&) const = default;
};

/// More of them nobody could tell apart, and each costs time of its own.
inline constexpr std::size_t kMostSeries = 200;

/// What a part of a sheet gives to draw.
struct ChartData {
  CellArea Area = {};
  bool SeriesInRows = false;
  bool AtPositions = false;              ///< X are 1, 2, ..., the positions
  bool DatesOnX = false;                 ///< X are serial days
  std::vector<double> X = {};            ///< not a number where the cell is blank
  std::string XName = {};                ///< what heads the X values or the labels
  std::vector<std::string> Labels = {};  ///< of the positions; their numbers where blank
  std::vector<ChartSeries> Series = {};  ///< those with a number, `kMostSeries` at most
  bool SeriesLeftOut = false;            ///< there are more
  std::string Fault = {};                ///< what keeps it from being drawn; empty: nothing does

  /// The row, or column, of a position.
  int LineOf(int position) const { return (SeriesInRows ? Area.Left : Area.Top) + position; }
  /// The cell behind a point.
  CellPlace PlaceOf(ChartPoint point) const;
  double ValueOf(ChartPoint point) const;
};

/// Reads the cells of an area as a chart wants them. Each column is a series, or each row where the
/// state says so; columns without a number are none. Cells that are not numbers are gaps.
///
/// The labels come from the column that the state names. While none is chosen they come from a
/// column of dates at the head of the area, else from the left-most one of the sheet. A column with
/// the labels is no series, unless the area has no other. In an X-Y chart the first column has the
/// X values, and a row without one is a gap, as the empty row at the end of many tables; an area of
/// a single column is drawn over 1, 2, ...
ChartData ReadChart(const Sheet& sheet, CellArea area, const ChartState& state);

/// The column, or row, of the sheet that the state names for the labels; the first one where none
/// is chosen, or where a state from another table names one that is not there.
int LabelLine(const Sheet& sheet, const ChartState& state);

/// The nearest point of the same series that is no gap: the next one, or the one before.
std::optional<ChartPoint> NextPoint(const ChartData& data, ChartPoint from, bool forward);

/// The part of a sheet that is charted, which stays on its cells while lines come and go: lines
/// inserted before its first one or between two are part of it. Lines taken from its end return to
/// it when they are put back there.
class ChartedArea {
 public:
  explicit ChartedArea(const CellArea& area = {}) : area_(area) {}

  const CellArea& Area() const { return area_; }
  void Follow(Axis axis, int first, int count, bool inserted);

 private:
  CellArea area_;
  int rowsLost_ = 0;  // from its end
  int colsLost_ = 0;
};

struct PieSlice {
  std::string Label = {};
  double Value = 0;
};

/// The first series as the slices of a pie, at most `kMostSlices`: where there are more, the small
/// ones are drawn as one at the end.
struct PieSlices {
  std::vector<PieSlice> Slices = {};
  double Sum = 0;
  int LeftOut = 0;  ///< values that make no slice: negative, zero or missing
};
inline constexpr std::size_t kMostSlices = 16;
PieSlices SlicesOf(const ChartData& data);

}  // namespace lomaris

#pragma once

#include <optional>

#include "windows/core/plot.h"
#include "windows/spreadsheet/chart_tickers.h"
#include "windows/spreadsheet/pie.h"

namespace lomaris {

/// Draws what was read from a sheet on a plot, in any type of chart.
///
/// The right axis is drawn where the state turns it around: it then carries the last of several
/// series, as rain is drawn from the top above the flow that it makes.
class ChartDrawing {
 public:
  /// The plot outlives this, and shows nothing else.
  explicit ChartDrawing(Plot& plot);

  /// Neither is kept beyond the next drawing, but both must last until then.
  void Draw(const ChartData& data, const ChartState& state);

  /// Takes the values of a series anew.
  void FillSeries(int series);

  /// Makes the axes show all of it.
  void Fit();
  /// True while the axes are as `Fit` left them.
  bool IsFitted() const;

  /// Makes the axes reach a point; `withRoom`: also where it lies on their edge.
  void Reach(ChartPoint point, bool withRoom = false);

  /// Rings a point; nothing: none.
  void Mark(std::optional<ChartPoint> point);

  /// The point drawn nearest to a pixel, not further than a finger's breadth away.
  std::optional<ChartPoint> PointNear(const QPointF& pixel) const;

  QPointF PixelOf(ChartPoint point) const;
  /// The value at the height of a pixel; beyond the axis that of its end.
  double ValueAt(int series, int pixel) const;
  /// The axis that a series is measured by.
  QCPAxis& ValueAxis(int series) const;

 private:
  double KeyOf(ChartPoint point) const;
  double BarWidth() const { return 0.8 / static_cast<double>(data_->Series.size()); }

  /// So many points that lines and bars are thinner than a pixel: all is drawn as plain lines.
  bool IsCrowded() const;

  void SetUpAxes();
  void DrawPie();
  void AddSeries(int series);
  QCPGraph* AddGraph(int series);

  Plot& plot_;
  Pie& pie_;
  const ChartData* data_ = nullptr;
  ChartState state_;
  bool ascending_ = true;  // the X values
  QCPGraph* mark_ = nullptr;
  QVector<QCPAbstractPlottable*> series_;
  QVector<QCPRange> fitted_;
};

}  // namespace lomaris

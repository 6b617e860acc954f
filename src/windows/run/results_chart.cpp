#include "windows/run/results_chart.h"

#include <algorithm>
#include <cmath>

#include "run/monitor_view.h"
#include "windows/core/qt_text.h"

namespace lomaris {

ResultsChart::ResultsChart(QWidget* parent) : Plot(parent) {
  addGraph();
  graph(0)->setAntialiased(false);  // a line of a thousand corners is no smoother for it
  setNoAntialiasingOnDrag(true);
  xAxis->setLabel("Cross section, counted along the branches");
  xAxis->ticker()->setTickStepStrategy(QCPAxisTicker::tssReadability);
  TakeColours();
  connect(this, &Plot::LookChanged, this, &ResultsChart::TakeColours);
  connect(this, &QCustomPlot::mouseMove, this, &ResultsChart::ShowTip);
}

void ResultsChart::TakeColours() {
  graph(0)->setPen(QPen(SeriesColour(0), 1));
}

void ResultsChart::ShowValues(const QString& title, std::span<const float> values,
                              double axisMaximum) {
  QVector<QCPGraphData> points;
  points.reserve(static_cast<qsizetype>(values.size()));
  float least = 0;
  double row = 0;
  for (const float value : values) {
    const bool drawn = std::isfinite(value);  // else the line has a gap
    if (drawn) least = std::min(least, value);
    points.append({++row, drawn ? double{value} : std::nan("")});
  }
  graph(0)->data()->set(points, true);
  xAxis->setRange(1, std::max(row, 2.0));
  yAxis->setRange(least < 0 ? -AxisMaximum(-least) : 0, axisMaximum);
  yAxis->setLabel(title);
  replot(rpQueuedReplot);
}

void ResultsChart::Clear() {
  graph(0)->data()->clear();
  setToolTip({});
  replot(rpQueuedReplot);
}

void ResultsChart::ShowTip(const QMouseEvent* event) {
  const auto& points = *graph(0)->data();
  const auto row = static_cast<int>(std::lround(xAxis->pixelToCoord(event->pos().x())));
  if (row < 1 || row > points.size()) {
    setToolTip({});
    return;
  }
  const double value = points.at(row - 1)->value;
  setToolTip(labels_.value(row - 1) + '\n' + ToQt(ResultText(static_cast<float>(value))));
}

}  // namespace lomaris

#include "windows/editors/profile_plot.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace lomaris {
namespace {

constexpr int kWaterColour = 0;
constexpr int kBedColour = 1;
constexpr double kMargin = 0.08;  ///< of the drawn height, above and below

/// A value that is not there makes a gap.
double OrGap(const std::optional<double>& value) {
  return value.value_or(std::numeric_limits<double>::quiet_NaN());
}

QColor Faint(QColor colour) {
  colour.setAlphaF(0.25F);
  return colour;
}

/// Room for the values; never an empty range.
QCPRange Padded(double lower, double upper, double margin) {
  const double room = upper > lower ? (upper - lower) * margin : 1;
  return {lower - room, upper + room};
}

}  // namespace

ProfilePlot::ProfilePlot(QWidget* parent)
    : Plot(parent), floor_(addGraph()), bed_(addGraph()), surface_(addGraph()), mark_(addGraph()) {
  setFocusPolicy(Qt::NoFocus);
  xAxis->setLabel("Distance along the branch (ft)");
  yAxis->setLabel("Elevation (ft msl)");
  bed_->setName("Bed");
  surface_->setName("Initial water surface");
  bed_->setChannelFillGraph(floor_);
  surface_->setChannelFillGraph(bed_);
  floor_->setPen(Qt::NoPen);
  floor_->removeFromLegend();
  mark_->removeFromLegend();
  legend->setVisible(true);
  connect(this, &QCustomPlot::mousePress, this, &ProfilePlot::PointAt);
  connect(this, &Plot::LookChanged, this, &ProfilePlot::TakeColours);
  TakeColours();
}

void ProfilePlot::TakeColours() {
  const auto paint = [](QCPGraph& graph, const QColor& colour) {
    graph.setPen(QPen(colour, 2));
    graph.setBrush(Faint(colour));
    graph.setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, 4));
  };
  paint(*bed_, SeriesColour(kBedColour));
  paint(*surface_, SeriesColour(kWaterColour));
  mark_->setPen(QPen(MarkColour(), 2, Qt::DashLine));
  mark_->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, MarkColour(), 9));
}

void ProfilePlot::ShowProfile(std::vector<ProfilePoint> points) {
  points_ = std::move(points);
  QVector<double> distances;
  QVector<double> inverts;
  QVector<double> surfaces;
  for (const ProfilePoint& point : points_) {
    distances << point.Distance;
    inverts << OrGap(point.Invert);
    surfaces << OrGap(point.Surface);
  }
  bed_->setData(distances, inverts, true);
  surface_->setData(distances, surfaces, true);
  FitAxes();
  floor_->setData(distances, QVector<double>(distances.size(), yAxis->range().lower), true);
  DrawMark();
}

void ProfilePlot::FitAxes() {
  double lowest = std::numeric_limits<double>::max();
  double highest = std::numeric_limits<double>::lowest();
  for (const ProfilePoint& point : points_) {
    for (const std::optional<double>& value : {point.Invert, point.Surface}) {
      lowest = std::min(lowest, value.value_or(lowest));
      highest = std::max(highest, value.value_or(highest));
    }
  }
  const bool isEmpty = lowest > highest;
  xAxis->setRange(isEmpty ? QCPRange(0, 1) : Padded(0, points_.back().Distance, kMargin / 4));
  yAxis->setRange(isEmpty ? QCPRange(0, 1) : Padded(lowest, highest, kMargin));
  for (QCPAxis* axis : {xAxis, yAxis}) axis->setTickLabels(!isEmpty);
}

void ProfilePlot::MarkRow(int row) {
  row_ = row;
  DrawMark();
}

void ProfilePlot::DrawMark() {
  const auto marked = std::ranges::find(points_, row_, &ProfilePoint::Row);
  QVector<double> distances;
  QVector<double> values;
  if (marked != points_.end() && marked->Invert) {
    for (const double value : {*marked->Invert, marked->Surface.value_or(*marked->Invert)}) {
      distances << marked->Distance;
      values << value;
    }
  }
  mark_->setData(distances, values, true);
  replot(rpQueuedReplot);
}

void ProfilePlot::PointAt(QMouseEvent* event) {
  if (points_.empty() || event->button() != Qt::LeftButton) return;
  const double distance = xAxis->pixelToCoord(event->pos().x());
  const auto nearest = std::ranges::min_element(
      points_, {}, [&](const ProfilePoint& point) { return std::abs(point.Distance - distance); });
  emit RowClicked(nearest->Row);
}

}  // namespace lomaris

#include "windows/editors/section_drawing.h"

#include <QMouseEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

constexpr double kMargin = 0.06;     ///< of the shape's extent, on each side
constexpr double kPickRadius = 12;   // pixels
constexpr double kPointSize = 6;     // pixels
constexpr double kFaultSize = 11;    // pixels
constexpr double kMarkedSize = 18;   // pixels
constexpr double kShortestSide = 1;  ///< ft; of the part of the plane that is shown

bool CanBeDrawn(const XSectPoint& point) {
  return std::isfinite(point.Station) && std::isfinite(point.Depth);
}

QCPRange ExtentOf(const std::vector<XSectPoint>& points, float XSectPoint::*side) {
  QCPRange extent;
  bool first = true;
  for (const XSectPoint& point : points) {
    if (!CanBeDrawn(point)) continue;
    const double value = point.*side;
    extent.lower = first ? value : std::min(extent.lower, value);
    extent.upper = first ? value : std::max(extent.upper, value);
    first = false;
  }
  return extent;
}

QCPRange Around(const QCPRange& extent, double length) {
  return {extent.center() - length / 2, extent.center() + length / 2};
}

QString Feet(double value) {
  return QString::number(value, 'f', 2);
}

}  // namespace

SectionDrawing::SectionDrawing(QWidget* parent)
    : QWidget(parent),
      plot_(new Plot(this)),
      text_(new QLabel(this)),
      shape_(new QCPCurve(plot_->xAxis, plot_->yAxis)),
      faulty_(new QCPCurve(plot_->xAxis, plot_->yAxis)),
      marked_(new QCPCurve(plot_->xAxis, plot_->yAxis)) {
  plot_->setFocusPolicy(Qt::NoFocus);
  plot_->xAxis->setLabel("Station (ft)");
  plot_->yAxis->setLabel("Depth (ft)");
  plot_->yAxis->setRangeReversed(true);
  plot_->axisRect()->setupFullAxesBox();
  for (QCPAxis* axis : {plot_->xAxis2, plot_->yAxis2}) {
    axis->setTicks(false);
    axis->setSubTicks(false);
  }
  faulty_->setLineStyle(QCPCurve::lsNone);
  marked_->setLineStyle(QCPCurve::lsNone);
  text_->setObjectName("lblSection");
  text_->setWordWrap(true);
  text_->setIndent(4);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(plot_, 1);
  layout->addWidget(text_);
  TakeColours();
  ShowText();
  connect(plot_, &Plot::LookChanged, this, &SectionDrawing::TakeColours);
  connect(plot_, &Plot::beforeReplot, this, &SectionDrawing::Fit);
  connect(plot_, &Plot::mousePress, this,
          [this](const QMouseEvent* event) { PickPoint(event->position()); });
}

void SectionDrawing::TakeColours() {
  const QColor line = plot_->SeriesColour(0);
  shape_->setPen(QPen(line, 2));
  shape_->setScatterStyle({QCPScatterStyle::ssDisc, line, line, kPointSize});
  faulty_->setScatterStyle(
      {QCPScatterStyle::ssCross, QPen(plot_->FaultColour(), 3), Qt::NoBrush, kFaultSize});
  marked_->setScatterStyle(
      {QCPScatterStyle::ssCircle, QPen(plot_->MarkColour(), 2), Qt::NoBrush, kMarkedSize});
  ShowText();
}

void SectionDrawing::ShowPoints(std::vector<XSectPoint> points, std::vector<PointFault> faults) {
  points_ = std::move(points);
  faults_ = std::move(faults);
  QVector<double> stations, depths, faultStations, faultDepths;
  for (const XSectPoint& point : points_) {
    stations << (CanBeDrawn(point) ? point.Station : qQNaN());  // a gap in the line
    depths << (CanBeDrawn(point) ? point.Depth : qQNaN());
  }
  for (const PointFault& fault : faults_) {
    faultStations << stations[fault.Point - 1];
    faultDepths << depths[fault.Point - 1];
  }
  shape_->setData(stations, depths);
  faulty_->setData(faultStations, faultDepths);
  ShowMark();
}

void SectionDrawing::MarkPoint(int point) {
  mark_ = point;
  ShowMark();
}

void SectionDrawing::SetSameScale(bool sameScale) {
  sameScale_ = sameScale;
  plot_->replot(Plot::rpQueuedReplot);
}

void SectionDrawing::ShowMark() {
  QVector<double> stations, depths;
  if (mark_ >= 1 && mark_ <= static_cast<int>(points_.size())) {
    const XSectPoint& point = points_[static_cast<std::size_t>(mark_) - 1];
    if (CanBeDrawn(point)) {
      stations << point.Station;
      depths << point.Depth;
    }
  }
  marked_->setData(stations, depths);
  ShowText();
  plot_->replot(Plot::rpQueuedReplot);
}

/// The fault of the marked point goes before the first one.
void SectionDrawing::ShowText() {
  auto fault = std::ranges::find(faults_, mark_, &PointFault::Point);
  if (fault == faults_.end()) fault = faults_.begin();
  QPalette colours = palette();
  if (fault != faults_.end()) {
    colours.setColor(QPalette::WindowText, plot_->FaultColour());
    text_->setText(ToQt(fault->Text));
  } else if (points_.empty()) {
    text_->setText("No points");
  } else {
    text_->setText(QString("Points: %1; width: %2 ft; depth: %3 ft")
                       .arg(points_.size())
                       .arg(Feet(ExtentOf(points_, &XSectPoint::Station).size()),
                            Feet(ExtentOf(points_, &XSectPoint::Depth).size())));
  }
  text_->setPalette(colours);
}

/// The room for the axes' labels is that of the picture before: it hardly changes.
void SectionDrawing::Fit() {
  const QCPRange across = ExtentOf(points_, &XSectPoint::Station);
  const QCPRange down = ExtentOf(points_, &XSectPoint::Depth);
  double width = std::max(across.size() * (1 + 2 * kMargin), kShortestSide);
  double height = std::max(down.size() * (1 + 2 * kMargin), kShortestSide);
  const QSize place = plot_->axisRect()->size();
  if (sameScale_ && !place.isEmpty()) {
    const double scale = std::max(width / place.width(), height / place.height());
    width = scale * place.width();
    height = scale * place.height();
  }
  plot_->xAxis->setRange(Around(across, width));
  plot_->yAxis->setRange(Around(down, height));
  for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis}) axis->setTickLabels(!points_.empty());
}

void SectionDrawing::PickPoint(const QPointF& place) {
  int picked = 0;
  double nearest = kPickRadius;
  for (std::size_t i = 0; i < points_.size(); ++i) {
    if (!CanBeDrawn(points_[i])) continue;
    const double distance = std::hypot(plot_->xAxis->coordToPixel(points_[i].Station) - place.x(),
                                       plot_->yAxis->coordToPixel(points_[i].Depth) - place.y());
    if (distance > nearest) continue;
    nearest = distance;
    picked = static_cast<int>(i) + 1;
  }
  if (picked > 0) emit PointPicked(picked);
}

}  // namespace lomaris

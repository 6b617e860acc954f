#include "windows/spreadsheet/chart_drawing.h"

#include <algorithm>
#include <cmath>

#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

constexpr double kLineWidth = 1.5;
constexpr int kMostInLegend = 20;          // what a small window has room for
constexpr std::size_t kMostMarked = 400;   // points of a line that are told apart by eye
constexpr std::size_t kMostPoints = 5000;  // of all series, that are drawn with care

/// X values that can be joined by a line without turning back.
bool IsAscending(const std::vector<double>& x) {
  double last = -std::numeric_limits<double>::infinity();
  for (const double value : x) {
    if (value < last) return false;
    if (!std::isnan(value)) last = value;
  }
  return true;
}

void Widen(QCPAxis& axis, double margin) {
  QCPRange range = axis.range();
  if (range.size() <= 0) range = {range.lower - 0.5, range.upper + 0.5};
  const double by = margin * range.size();
  axis.setRange(range.lower - by, range.upper + by);
}

}  // namespace

ChartDrawing::ChartDrawing(Plot& plot) : plot_(plot), pie_(*new Pie(plot)) {
  // The legend stands at the top beside the axes, where it hides no point, with nothing below it.
  auto* side = new QCPLayoutGrid;
  plot_.plotLayout()->addElement(0, 1, side);
  plot_.plotLayout()->setColumnStretchFactor(1, 0.001);
  plot_.axisRect()->insetLayout()->take(plot_.legend);
  side->setAutoMargins(QCP::msNone);
  side->setMargins({0, 8, 8, 8});  // its frame stands free of the edge
  side->addElement(0, 0, plot_.legend);
  side->addElement(1, 0, new QCPLayoutElement(&plot_));
  side->setRowStretchFactor(0, 0.001);
  // Room for half a label at both ends.
  plot_.axisRect()->setMinimumMargins({kWidestLabel / 2 + 4, 15, kWidestLabel / 2, 15});
  plot_.axisRect()->setRangeDragAxes({plot_.xAxis}, {plot_.yAxis, plot_.yAxis2});
  plot_.axisRect()->setRangeZoomAxes({plot_.xAxis}, {plot_.yAxis, plot_.yAxis2});
}

void ChartDrawing::Draw(const ChartData& data, const ChartState& state) {
  data_ = &data;
  state_ = state;
  ascending_ = IsAscending(data.X);
  plot_.clearPlottables();
  plot_.legend->clearItems();
  series_.clear();
  mark_ = nullptr;
  SetUpAxes();
  if (state.Type == ChartType::Pie) {
    DrawPie();
  } else {
    pie_.SetSlices({}, false);
    for (int series = 0; series < static_cast<int>(data.Series.size()); ++series) AddSeries(series);
    mark_ = plot_.addGraph();
    mark_->removeFromLegend();
    mark_->setLineStyle(QCPGraph::lsNone);
    mark_->setScatterStyle({QCPScatterStyle::ssCircle, QPen(plot_.MarkColour(), 2.5), {}, 13});
  }
  plot_.legend->setVisible(state.Legend && plot_.legend->itemCount() > 0);
}

void ChartDrawing::SetUpAxes() {
  const bool pie = state_.Type == ChartType::Pie;
  const bool right = !pie && state_.ReverseY2 && data_->Series.size() > 1;
  plot_.xAxis->setVisible(!pie);
  plot_.yAxis->setVisible(!pie);
  plot_.yAxis2->setVisible(right);
  plot_.xAxis->setRangeReversed(state_.ReverseX);
  plot_.yAxis->setRangeReversed(state_.ReverseY);
  plot_.yAxis2->setRangeReversed(right);
  QSharedPointer<QCPAxisTicker> ticker(new QCPAxisTicker);
  if (data_->DatesOnX) {
    ticker.reset(new DateTicker(*plot_.xAxis));
  } else if (data_->AtPositions) {
    ticker.reset(new LabelTicker(*plot_.xAxis, data_->Labels));
  }
  plot_.xAxis->setTicker(ticker);
  plot_.xAxis->setLabel(ToQt(data_->XName));
}

void ChartDrawing::DrawPie() {
  const PieSlices slices = SlicesOf(*data_);
  pie_.SetSlices(slices, !state_.Legend);
  if (!state_.Legend) return;
  for (std::size_t i = 0; i < slices.Slices.size(); ++i) {
    // Bars without a bar: they stand for their slice in the legend.
    auto* entry = new QCPBars(plot_.xAxis, plot_.yAxis);
    entry->setName(ShortLabel(slices.Slices[i].Label, QFontMetrics(plot_.legend->font())));
    entry->setBrush(pie_.ColourOf(static_cast<int>(i)));
    entry->setPen(Qt::NoPen);
  }
}

bool ChartDrawing::IsCrowded() const {
  return data_->X.size() * data_->Series.size() > kMostPoints;
}

void ChartDrawing::AddSeries(int series) {
  const QColor colour = plot_.SeriesColour(series);
  QCPAbstractPlottable* added = nullptr;
  if (state_.Type == ChartType::Bar && !IsCrowded()) {
    auto* bars = new QCPBars(plot_.xAxis, &ValueAxis(series));
    bars->setWidth(BarWidth());
    bars->setBrush(colour);
    bars->setPen(Qt::NoPen);
    added = bars;
  } else {
    added = AddGraph(series);
  }
  added->setName(ShortLabel(data_->Series[static_cast<std::size_t>(series)].Name,
                            QFontMetrics(plot_.legend->font())));
  if (!state_.Legend || series >= kMostInLegend) added->removeFromLegend();
  series_.append(added);
  FillSeries(series);
}

QCPGraph* ChartDrawing::AddGraph(int series) {
  const QColor colour = plot_.SeriesColour(series);
  QCPGraph* graph = plot_.addGraph(plot_.xAxis, &ValueAxis(series));
  graph->setPen(QPen(colour, IsCrowded() ? 1 : kLineWidth));
  // Smooth edges are nowhere to be seen among so many points, and cost seconds.
  graph->setAntialiased(!IsCrowded());
  graph->setAntialiasedFill(!IsCrowded());
  graph->setAntialiasedScatters(!IsCrowded());
  if (state_.Type == ChartType::Bar) {
    graph->setLineStyle(QCPGraph::lsImpulse);
    return graph;
  }
  // Nor is a fill to be seen, which of so many corners costs more than all the lines.
  if (state_.Type == ChartType::Area && !IsCrowded()) {
    QColor fill = colour;
    fill.setAlphaF(0.45F);
    graph->setBrush(fill);
  }
  if (!ascending_) graph->setLineStyle(QCPGraph::lsNone);
  if (!ascending_ && IsCrowded()) {
    graph->setScatterStyle(QCPScatterStyle::ssDot);
  } else if (data_->X.size() <= (state_.Type == ChartType::XY ? kMostPoints : kMostMarked)) {
    graph->setScatterStyle({QCPScatterStyle::ssDisc, 5});
  }
  return graph;
}

void ChartDrawing::FillSeries(int series) {
  const std::vector<double>& values = data_->Series[static_cast<std::size_t>(series)].Values;
  QVector<double> keys;
  QVector<double> drawn;
  keys.reserve(static_cast<qsizetype>(values.size()));
  drawn.reserve(static_cast<qsizetype>(values.size()));
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double key = KeyOf({series, static_cast<int>(i)});
    if (std::isnan(key)) continue;
    keys.append(key);
    drawn.append(values[i]);
  }
  if (auto* graph = qobject_cast<QCPGraph*>(series_[series])) {
    graph->setData(keys, drawn, ascending_);
  } else {
    static_cast<QCPBars*>(series_[series])->setData(keys, drawn, true);
  }
}

double ChartDrawing::KeyOf(ChartPoint point) const {
  const double x = data_->X[static_cast<std::size_t>(point.Position)];
  if (state_.Type != ChartType::Bar) return x;
  const double middle = (static_cast<double>(data_->Series.size()) - 1) / 2;
  return x + (point.Series - middle) * BarWidth();
}

QCPAxis& ChartDrawing::ValueAxis(int series) const {
  const auto count = static_cast<int>(data_->Series.size());
  const bool right = state_.ReverseY2 && count > 1 && series == count - 1;
  return right ? *plot_.yAxis2 : *plot_.yAxis;
}

void ChartDrawing::Fit() {
  constexpr double kMargin = 0.05;
  const bool fromZero = state_.Type == ChartType::Bar || state_.Type == ChartType::Area;
  if (mark_ != nullptr) mark_->data()->clear();
  plot_.rescaleAxes();
  if (data_->AtPositions) {
    plot_.xAxis->setRange(0.5, static_cast<double>(data_->X.size()) + 0.5);
  } else {
    Widen(*plot_.xAxis, kMargin / 2);
  }
  for (QCPAxis* axis : {plot_.yAxis, plot_.yAxis2}) {
    const QCPRange range = axis->range();
    if (fromZero) axis->setRange(std::min(range.lower, 0.0), std::max(range.upper, 0.0));
    Widen(*axis, kMargin);
    if (fromZero && range.lower >= 0) axis->setRangeLower(0);
    if (fromZero && range.upper <= 0) axis->setRangeUpper(0);
  }
  fitted_ = {plot_.xAxis->range(), plot_.yAxis->range(), plot_.yAxis2->range()};
}

bool ChartDrawing::IsFitted() const {
  return fitted_ ==
         QVector<QCPRange>{plot_.xAxis->range(), plot_.yAxis->range(), plot_.yAxis2->range()};
}

void ChartDrawing::Reach(ChartPoint point, bool withRoom) {
  QCPAxis& values = ValueAxis(point.Series);
  const double value = data_->ValueOf(point);
  const double room = withRoom ? 0.01 * values.range().size() : 0;
  const QCPRange within(values.range().lower + room, values.range().upper - room);
  if (!within.contains(value)) {
    values.setRange(values.range().expanded(QCPRange(value, value)));
    Widen(values, 0.05);
  }
  const double key = KeyOf(point);
  if (!plot_.xAxis->range().contains(key)) {
    plot_.xAxis->setRange(plot_.xAxis->range().expanded(QCPRange(key, key)));
  }
}

void ChartDrawing::Mark(std::optional<ChartPoint> point) {
  if (mark_ == nullptr) return;
  mark_->data()->clear();
  if (!point) return;
  mark_->setValueAxis(&ValueAxis(point->Series));
  mark_->addData(KeyOf(*point), data_->ValueOf(*point));
}

double ChartDrawing::ValueAt(int series, int pixel) const {
  const QRect rect = plot_.axisRect()->rect();
  return ValueAxis(series).pixelToCoord(std::clamp(pixel, rect.top(), rect.bottom()));
}

QPointF ChartDrawing::PixelOf(ChartPoint point) const {
  return {plot_.xAxis->coordToPixel(KeyOf(point)),
          ValueAxis(point.Series).coordToPixel(data_->ValueOf(point))};
}

std::optional<ChartPoint> ChartDrawing::PointNear(const QPointF& pixel) const {
  constexpr double kReach = 12;  // pixels
  std::optional<ChartPoint> nearest;
  double least = kReach * kReach;
  for (int series = 0; series < series_.size(); ++series) {
    for (int position = 0; position < static_cast<int>(data_->X.size()); ++position) {
      const QPointF away = PixelOf({series, position}) - pixel;
      const double distance = QPointF::dotProduct(away, away);
      if (!(distance <= least)) continue;  // neither a gap
      least = distance;
      nearest = {series, position};
    }
  }
  return nearest;
}

}  // namespace lomaris

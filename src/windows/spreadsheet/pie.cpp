#include "windows/spreadsheet/pie.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "windows/spreadsheet/chart_tickers.h"

namespace lomaris {
namespace {

constexpr int kFullTurn = 16 * 360;
constexpr int kTwelveOClock = 16 * 90;
constexpr double kLeastShareWithText = 0.025;

}  // namespace

Pie::Pie(Plot& plot) : QCPLayerable(&plot, "main"), plot_(plot) {}

void Pie::SetSlices(PieSlices slices, bool labels) {
  slices_ = std::move(slices);
  labels_ = labels;
}

/// The colours of the series, and after the last of them all again in a paler shade.
QColor Pie::ColourOf(int slice) const {
  QColor colour = plot_.SeriesColour(slice);
  if (slice >= Plot::kSeriesColours) colour.setAlphaF(0.6F);
  return colour;
}

QRect Pie::clipRect() const {
  return plot_.viewport();
}

void Pie::applyDefaultAntialiasingHint(QCPPainter* painter) const {
  painter->setAntialiasing(true);
}

void Pie::draw(QCPPainter* painter) {
  const QRectF room = plot_.axisRect()->rect();
  const double radius = 0.38 * std::min(room.width(), room.height());
  if (radius < 1) return;
  const QRectF circle(room.center() - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
  double before = 0;
  for (std::size_t i = 0; i < slices_.Slices.size(); ++i) {
    const PieSlice& slice = slices_.Slices[i];
    const auto angleAt = [&](double value) {
      return static_cast<int>(std::lround(kFullTurn * value / slices_.Sum));
    };
    const int from = angleAt(before);
    const int to = angleAt(before + slice.Value);
    const bool whole = slices_.Slices.size() == 1;
    painter->setPen(whole ? QPen(Qt::NoPen) : QPen(plot_.palette().color(QPalette::Base), 1.5));
    painter->setBrush(ColourOf(static_cast<int>(i)));
    painter->drawPie(circle, kTwelveOClock - from, from - to);
    const double middle = 2 * std::numbers::pi * (from + to) / 2 / kFullTurn;
    const QPointF outwards(std::sin(middle), -std::cos(middle));
    DrawText(*painter, slice, room.center() + outwards * (radius + 8));
    before += slice.Value;
  }
}

void Pie::DrawText(QCPPainter& painter, const PieSlice& slice, const QPointF& at) const {
  const double share = slice.Value / slices_.Sum;
  if (share < kLeastShareWithText) return;
  QString text = QString::number(100 * share, 'f', 1) + '%';
  const QFontMetrics metrics(painter.font());
  if (labels_) text = ShortLabel(slice.Label, metrics) + ' ' + text;
  const int width = metrics.horizontalAdvance(text);
  const bool left = at.x() < plot_.axisRect()->center().x();
  painter.setPen(plot_.palette().color(QPalette::Text));
  painter.drawText(QPointF(left ? at.x() - width : at.x(), at.y() + metrics.ascent() / 2.0 - 1),
                   text);
}

}  // namespace lomaris

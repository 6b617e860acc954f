#include "windows/core/plot.h"

#include <QEvent>
#include <array>

namespace lomaris {
namespace {

struct Colours {
  QRgb OnLight;
  QRgb OnDark;

  QColor On(bool dark) const { return QColor::fromRgb(dark ? OnDark : OnLight); }
};

constexpr std::array<Colours, Plot::kSeriesColours> kSeries = {{{0xff0b62a4, 0xff6cb2e6},
                                                                {0xffc05a00, 0xfff0a050},
                                                                {0xff1a7f4b, 0xff63c893},
                                                                {0xff8e3a8e, 0xffd58fd5},
                                                                {0xff7a6a00, 0xffd2c04a},
                                                                {0xff007a87, 0xff5cc8d4},
                                                                {0xff8a4b2a, 0xffcf9a7c},
                                                                {0xff555a60, 0xffa8adb4}}};
constexpr Colours kFault = {0xffc4211b, 0xffff7a70};

void ColourAxis(QCPAxis& axis, const QColor& text, const QColor& grid) {
  axis.setBasePen(text);
  axis.setTickPen(text);
  axis.setSubTickPen(text);
  axis.setTickLabelColor(text);
  axis.setLabelColor(text);
  axis.grid()->setPen(QPen(grid, 1));
  axis.grid()->setZeroLinePen(QPen(grid, 1));
}

}  // namespace

Plot::Plot(QWidget* parent) : QCustomPlot(parent) {
  setLocale(QLocale::c());  // numbers as the program writes them everywhere
  TakePalette();
}

QColor Plot::SeriesColour(int series) const {
  return kSeries[static_cast<std::size_t>(series) % kSeries.size()].On(IsDark());
}

QColor Plot::FaultColour() const {
  return kFault.On(IsDark());
}

QColor Plot::MarkColour() const {
  return palette().color(QPalette::Highlight);
}

bool Plot::IsDark() const {
  return palette().color(QPalette::Base).lightness() < 128;
}

void Plot::TakePalette() {
  const QColor ground = palette().color(QPalette::Base);
  const QColor text = palette().color(QPalette::Text);
  QColor faint = text;
  faint.setAlphaF(0.18F);
  setBackground(ground);
  for (QCPAxis* axis : axisRect()->axes()) ColourAxis(*axis, text, faint);
  QColor legendGround = ground;
  legendGround.setAlphaF(0.85F);
  legend->setBrush(legendGround);
  legend->setBorderPen(faint);
  legend->setTextColor(text);
}

void Plot::changeEvent(QEvent* event) {
  QCustomPlot::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  TakePalette();
  emit LookChanged();
  replot(rpQueuedReplot);
}

}  // namespace lomaris

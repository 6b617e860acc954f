#include "windows/run/interval_slider.h"

#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cmath>

namespace lomaris {
namespace {

constexpr int kPlaces = 10000;

/// To two digits: nobody means 1237 ms.
int Rounded(double value) {
  const double unit = std::pow(10, std::floor(std::log10(value)) - 1);
  return static_cast<int>(std::round(std::round(value / unit) * unit));
}

}  // namespace

IntervalSlider::IntervalSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {}

/// What is drawn, and what is hit, is the place and not the value.
void IntervalSlider::initStyleOption(QStyleOptionSlider* option) const {
  QSlider::initStyleOption(option);
  const double least = std::max(1, minimum());
  const double whole = std::log(maximum() / least);
  option->minimum = 0;
  option->maximum = kPlaces;
  option->sliderPosition =
      static_cast<int>(std::lround(std::log(sliderPosition() / least) / whole * kPlaces));
  option->sliderValue = option->sliderPosition;
}

/// Keys and wheel move it by a tenth, or by a half.
void IntervalSlider::sliderChange(SliderChange change) {
  QSlider::sliderChange(change);
  if (change != SliderValueChange) return;
  setSingleStep(std::max(1, value() / 10));
  setPageStep(std::max(1, value() / 2));
}

void IntervalSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  setSliderDown(true);
  setSliderPosition(ValueAt(event->pos().x()));
}

void IntervalSlider::mouseMoveEvent(QMouseEvent* event) {
  if (isSliderDown()) setSliderPosition(ValueAt(event->pos().x()));
}

void IntervalSlider::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) setSliderDown(false);
}

int IntervalSlider::ValueAt(int x) const {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const auto partOf = [&](QStyle::SubControl part) {
    return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
  };
  const QRect groove = partOf(QStyle::SC_SliderGroove);
  const int handle = partOf(QStyle::SC_SliderHandle).width();
  const int place = QStyle::sliderValueFromPosition(0, kPlaces, x - groove.x() - handle / 2,
                                                    groove.width() - handle);
  const double least = std::max(1, minimum());
  return Rounded(least * std::pow(maximum() / least, static_cast<double>(place) / kPlaces));
}

}  // namespace lomaris

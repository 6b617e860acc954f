#include "windows/spreadsheet/chart_tickers.h"

#include <algorithm>
#include <cmath>

#include "spreadsheet/cell_checks.h"
#include "windows/core/qt_dates.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

constexpr double kBetweenLabels = 14;  // pixels
constexpr double kMonth = 28;          // days: ticks as far apart as this or more are of months
constexpr std::string_view kDayMask = "mm/dd/yy";

double Room(const QCPAxis& axis, double labelWidth) {
  return std::max(2.0, std::floor(axis.axisRect()->width() / (labelWidth + kBetweenLabels)));
}

double WidthOf(const QCPAxis& axis, const QString& text) {
  return QFontMetricsF(axis.tickLabelFont()).horizontalAdvance(text);
}

/// The next of 1, 2, 5, 10, 20, ... from a number on.
double NextRound(double number) {
  const double unit = std::pow(10, std::floor(std::log10(std::max(number, 1.0))));
  for (const double times : {1.0, 2.0, 5.0}) {
    if (times * unit >= number) return times * unit;
  }
  return 10 * unit;
}

/// Serial of the first day of a month; `month` counts on from 0 in the year 0.
double MonthSerial(int month) {
  return *DateSerial(month / 12, month % 12 + 1, 1);
}

int MonthOf(double serial) {
  const QDate date = DateToQt(serial).date();
  return date.year() * 12 + date.month() - 1;
}

}  // namespace

QString ShortLabel(std::string_view label, const QFontMetrics& metrics) {
  return metrics.elidedText(ToQt(label), Qt::ElideRight, kWidestLabel);
}

LabelTicker::LabelTicker(const QCPAxis& axis, const std::vector<std::string>& labels)
    : axis_(axis), labels_(labels) {}

QString LabelTicker::LabelAt(std::size_t place) const {
  return ShortLabel(labels_[place], QFontMetrics(axis_.tickLabelFont()));
}

/// Of some labels over the whole length: they are all alike where there are many.
double LabelTicker::WidestLabel() const {
  constexpr std::size_t kSample = 50;
  double widest = 0;
  for (std::size_t i = 0; i < labels_.size(); i += 1 + labels_.size() / kSample) {
    widest = std::max(widest, WidthOf(axis_, LabelAt(i)));
  }
  return widest;
}

double LabelTicker::getTickStep(const QCPRange& range) {
  return NextRound(range.size() / Room(axis_, WidestLabel()));
}

QString LabelTicker::getTickLabel(double tick, const QLocale&, QChar, int) {
  const double place = tick - 1;
  if (place < 0 || place >= static_cast<double>(labels_.size())) return {};
  return place == std::floor(place) ? LabelAt(static_cast<std::size_t>(place)) : QString();
}

double DateTicker::getTickStep(const QCPRange& range) {
  constexpr double kMinute = 1.0 / 1440;
  constexpr double kHour = 1.0 / 24;
  constexpr double kSteps[] = {
      kMinute, 2 * kMinute, 5 * kMinute, 10 * kMinute, 15 * kMinute, 30 * kMinute,
      kHour,   2 * kHour,   3 * kHour,   6 * kHour,    12 * kHour,   1,
      2,       7,           14,          30.4,         61,           91,
      182,     365.25};
  const double wanted = range.size() / Room(axis_, WidthOf(axis_, "00/00/00"));
  const double wantedWithTime = range.size() / Room(axis_, WidthOf(axis_, "00/00/00 00:00"));
  for (const double step : kSteps) {
    if (step >= (step < 1 ? wantedWithTime : wanted)) return step;
  }
  constexpr double kYear = 365.25;
  return NextRound(wanted / kYear) * kYear;
}

QVector<double> DateTicker::createTickVector(double tickStep, const QCPRange& range) {
  static const double kFirst = *DateSerial(101, 1, 1);
  static const double kLast = *DateSerial(9999, 12, 1);
  const QCPRange dates(std::clamp(range.lower, kFirst, kLast),
                       std::clamp(range.upper, kFirst, kLast));
  withTime_ = tickStep < 1;
  if (dates.size() <= 0) return {};
  if (tickStep < kMonth) return QCPAxisTicker::createTickVector(tickStep, dates);
  const int months = std::max(1, static_cast<int>(std::lround(tickStep / 30.4375)));
  QVector<double> ticks;
  int month = MonthOf(dates.lower);
  for (month -= month % months; month <= MonthOf(dates.upper); month += months) {
    if (month >= MonthOf(kFirst)) ticks.append(MonthSerial(month));
  }
  return ticks;
}

QString DateTicker::getTickLabel(double tick, const QLocale&, QChar, int) {
  return ToQt(FormatDate(tick, withTime_ ? kCellDateMask : kDayMask));
}

}  // namespace lomaris

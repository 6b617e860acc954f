#pragma once

#include <string>
#include <vector>

#include <qcustomplot.h>

namespace lomaris {

inline constexpr int kWidestLabel = 110;  ///< pixels

/// A label, or a name in the legend, cut to `kWidestLabel`: one cell's text must not push the chart
/// aside.
QString ShortLabel(std::string_view label, const QFontMetrics& metrics);

/// Ticks of an axis at whole positions 1, 2, ..., each with its label, as far apart as the labels
/// need.
class LabelTicker : public QCPAxisTicker {
 public:
  /// Both outlive this.
  LabelTicker(const QCPAxis& axis, const std::vector<std::string>& labels);

 protected:
  double getTickStep(const QCPRange& range) override;
  int getSubTickCount(double) override { return 0; }
  QString getTickLabel(double tick, const QLocale&, QChar, int) override;

 private:
  QString LabelAt(std::size_t place) const;
  double WidestLabel() const;

  const QCPAxis& axis_;
  const std::vector<std::string>& labels_;
};

/// Ticks of an axis of serial days, at steps of a clock and of a calendar.
class DateTicker : public QCPAxisTicker {
 public:
  /// `axis` outlives this.
  explicit DateTicker(const QCPAxis& axis) : axis_(axis) {}

 protected:
  double getTickStep(const QCPRange& range) override;
  int getSubTickCount(double) override { return 0; }
  QVector<double> createTickVector(double tickStep, const QCPRange& range) override;
  QString getTickLabel(double tick, const QLocale&, QChar, int) override;

 private:
  const QCPAxis& axis_;
  bool withTime_ = false;  // the ticks are less than a day apart
};

}  // namespace lomaris

#pragma once

#include <qcustomplot.h>

namespace lomaris {

/// A plot in the colours of its palette, also when that changes. What is drawn in colours of its
/// own is drawn again on `LookChanged`.
class Plot : public QCustomPlot {
  Q_OBJECT

 public:
  explicit Plot(QWidget* parent = nullptr);

  static constexpr int kSeriesColours = 8;

  /// The colour of a series, counted from 0, which return after the last: told apart by people who
  /// see colours differently, and readable on a light and on a dark ground.
  QColor SeriesColour(int series) const;

  /// For what is wrong in the data.
  QColor FaultColour() const;

  /// For what is selected elsewhere, in a grid beside the plot.
  QColor MarkColour() const;

 signals:
  void LookChanged();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void TakePalette();
  bool IsDark() const;
};

}  // namespace lomaris

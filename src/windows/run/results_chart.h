#pragma once

#include <QStringList>
#include <span>

#include "windows/core/plot.h"

namespace lomaris {

/// One column of results by row number. The tool tip tells the row and the value at the pointer.
class ResultsChart : public Plot {
  Q_OBJECT

 public:
  explicit ResultsChart(QWidget* parent = nullptr);

  void SetRowLabels(const QStringList& labels) { labels_ = labels; }

  /// Draws values at the next chance. The value axis ends at `axisMaximum`; it starts at 0, or
  /// below the least value where that is negative.
  void ShowValues(const QString& title, std::span<const float> values, double axisMaximum);

  /// Draws none.
  void Clear();

 private:
  void TakeColours();
  void ShowTip(const QMouseEvent* event);

  QStringList labels_;
};

}  // namespace lomaris

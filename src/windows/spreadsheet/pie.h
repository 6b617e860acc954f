#pragma once

#include "spreadsheet/chart_data.h"
#include "windows/core/plot.h"

namespace lomaris {

/// A pie in the middle of a plot, its first slice from twelve o'clock on, clockwise.
class Pie : public QCPLayerable {
  Q_OBJECT

 public:
  /// The plot owns it.
  explicit Pie(Plot& plot);

  /// Empty `slices`: nothing is drawn. Slices with room for it bear their share, and without a
  /// legend their label.
  void SetSlices(PieSlices slices, bool labels);

  QColor ColourOf(int slice) const;

 protected:
  QRect clipRect() const override;
  void applyDefaultAntialiasingHint(QCPPainter* painter) const override;
  void draw(QCPPainter* painter) override;

 private:
  void DrawText(QCPPainter& painter, const PieSlice& slice, const QPointF& at) const;

  Plot& plot_;
  PieSlices slices_;
  bool labels_ = false;
};

}  // namespace lomaris

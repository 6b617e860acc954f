#pragma once

#include <QLabel>
#include <QWidget>
#include <vector>

#include "editors/library_desk.h"
#include "model/xsect_library.h"
#include "windows/core/plot.h"

namespace lomaris {

/// A picture of a cross section: station across, depth downward, and a line below that says what is
/// wrong with it or how large it is. It fits itself to its points.
class SectionDrawing : public QWidget {
  Q_OBJECT

 public:
  explicit SectionDrawing(QWidget* parent = nullptr);

  void ShowPoints(std::vector<XSectPoint> points, std::vector<PointFault> faults);

  /// Marks a point, counted from 1; one that is not there: none.
  void MarkPoint(int point);

  /// A foot across is as long as a foot down.
  void SetSameScale(bool sameScale);

 signals:
  /// The user has clicked a point, counted from 1.
  void PointPicked(int point);

 private:
  void TakeColours();
  void Fit();
  void ShowMark();
  void ShowText();
  void PickPoint(const QPointF& place);

  Plot* plot_;
  QLabel* text_;
  QCPCurve* shape_;
  QCPCurve* faulty_;
  QCPCurve* marked_;
  std::vector<XSectPoint> points_;
  std::vector<PointFault> faults_;
  int mark_ = 0;
  bool sameScale_ = false;
};

}  // namespace lomaris

#pragma once

#include <vector>

#include "editors/bed_profile.h"
#include "windows/core/plot.h"

namespace lomaris {

/// The picture of a branch: its bed and its initial water surface, one cross section marked. A
/// picture beside a grid, which alone takes the keyboard.
class ProfilePlot : public Plot {
  Q_OBJECT

 public:
  explicit ProfilePlot(QWidget* parent = nullptr);

  void ShowProfile(std::vector<ProfilePoint> points);

  /// Marks the cross section of a row of the grid; none when there is no such row.
  void MarkRow(int row);

 signals:
  /// The user points at a cross section.
  void RowClicked(int row);

 private:
  void TakeColours();
  void FitAxes();
  void DrawMark();
  void PointAt(QMouseEvent* event);

  std::vector<ProfilePoint> points_;
  int row_ = 0;
  QCPGraph* floor_;  ///< down to which the bed is filled
  QCPGraph* bed_;
  QCPGraph* surface_;
  QCPGraph* mark_;
};

}  // namespace lomaris

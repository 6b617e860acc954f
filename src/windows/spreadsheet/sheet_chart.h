#pragma once

#include <QWidget>

#include "core/ports/ui.h"
#include "spreadsheet/chart_state.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// The chart of a part of a sheet, in place of the grid.
class SheetChart : public QWidget {
  Q_OBJECT

 public:
  /// All three outlive this. `state` is the chart's to change.
  SheetChart(Sheet& sheet, Ui& screen, ChartState& state, QWidget* parent = nullptr);

  /// Draws an area of the sheet. False, having told it, when it cannot be drawn.
  bool ShowArea(const CellArea& area);

 signals:
  /// The user wants the grid back.
  void ReturnRequested();

 private:
  Sheet& sheet_;
  Ui& screen_;
  ChartState& state_;
};

}  // namespace lomaris

#pragma once

#include <QLabel>
#include <QMenu>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "core/ports/ui.h"
#include "spreadsheet/chart_edits.h"
#include "spreadsheet/sheet.h"
#include "windows/spreadsheet/chart_drawing.h"

namespace lomaris {

/// The chart of a part of a sheet, in place of the grid. Its points can be dragged, which writes
/// their values back to their cells.
class SheetChart : public QWidget {
  Q_OBJECT

 public:
  /// All three outlive this. `state` is the chart's to change.
  SheetChart(Sheet& sheet, Ui& screen, ChartState& state, QWidget* parent = nullptr);

  /// Draws an area of the sheet. False, having told it, when it cannot be drawn.
  bool ShowArea(const CellArea& area);

  /// Lines of the sheet have come or gone.
  void FollowLines(Axis axis, int first, int count, bool inserted);

 public slots:
  /// Takes the cells and the state anew, on the next turn of the event loop or when the chart is
  /// seen again; for when they have changed.
  void Refresh();

 signals:
  /// The user wants the grid back.
  void ReturnRequested();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  // sheet_chart.cpp: the menu, and what it changes
  void MakeChartMenu();
  bool ShowAs(const ChartState& wanted);
  void Take(ChartData chart);
  void ShowError(const std::string& text);
  void SetType(ChartType type);
  void ToggleRows();
  void AskLabels();
  void ToggleLegend();
  void CopyPicture();
  bool CanEditPoints() const;
  void SetEditing(bool editing);
  void ReadCells();
  void DrawAll();
  void ShowMenuState();
  void OpenMenu(const QPoint& place);
  /// On the screen, for a menu that is opened by a key.
  QPoint MenuPlace() const;
  QString HintText() const;
  void ShowHint();

  // sheet_chart_points.cpp: editing points
  void MakePointMenu();
  void FollowMouse();
  std::function<void()> ActOf(const QKeyEvent& key);
  std::function<void()> EditActOf(int key);
  void SelectPoint(std::optional<ChartPoint> point);
  void StepAlong(bool forward);
  void StepSeries(bool forward);
  void Nudge(bool up);
  void DragTo(const QPoint& pixel);
  void CancelDrag();
  void EndDrag();
  void Write(ChartPoint point, double value);
  void InsertSelected() { ChangeLines(InsertPoint); }
  void DeleteSelected() { ChangeLines(DeletePoint); }
  void ChangeLines(bool (*change)(Sheet&, const ChartData&, int));
  void Travel(bool undo);
  bool Change(const std::function<bool()>& change);
  double UnitsPerPixel(int series) const;
  QString PointText() const;

  Sheet& sheet_;
  Ui& screen_;
  ChartState& state_;
  ChartedArea area_;
  ChartData data_;
  Plot* plot_;
  QLabel* hint_;
  ChartDrawing drawing_;
  QMenu mnuChart_{this};
  QMenu mnuChartPoint_{this};
  QTimer refresh_;
  bool stale_ = false;  // since it was hidden
  bool editing_ = false;
  bool dragging_ = false;
  bool moved_ = false;  // the mouse, since it was pressed on a point
  QPoint pressedAt_;
  std::optional<ChartPoint> selected_;
  QString refusal_;  // of the last change of a point
};

}  // namespace lomaris

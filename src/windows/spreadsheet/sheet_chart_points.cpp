// Editing the points of a chart.

#include <QMouseEvent>
#include <algorithm>
#include <cmath>

#include "core/error_report.h"
#include "core/numbers.h"
#include "windows/core/qt_text.h"
#include "windows/spreadsheet/sheet_chart.h"

namespace lomaris {

void SheetChart::MakePointMenu() {
  mnuChartPoint_.setObjectName("mnuChartPoint");
  const auto add = [this](const char* caption, const char* name, auto slot) {
    mnuChartPoint_.addAction(tr(caption), this, slot)->setObjectName(name);
  };
  add("&Insert Point", "mnuChartPointInsert", &SheetChart::InsertSelected);
  add("&Delete Point", "mnuChartPointDelete", &SheetChart::DeleteSelected);
  add("&Stop Editing", "mnuChartPointStop", [this] { SetEditing(false); });
}

void SheetChart::FollowMouse() {
  connect(plot_, &QCustomPlot::mousePress, this, [this](QMouseEvent* event) {
    if (!editing_ || event->button() != Qt::LeftButton) return;
    SelectPoint(drawing_.PointNear(event->pos()));
    dragging_ = selected_.has_value();
    pressedAt_ = event->pos();
    moved_ = false;
  });
  connect(plot_, &QCustomPlot::mouseMove, this, [this](QMouseEvent* event) {
    constexpr int kHandShakes = 3;  // pixels
    if (std::abs(event->pos().y() - pressedAt_.y()) > kHandShakes) moved_ = true;
    if (dragging_ && moved_) DragTo(event->pos());
  });
  connect(plot_, &QCustomPlot::mouseRelease, this, [this](QMouseEvent* event) {
    if (dragging_ && event->button() == Qt::LeftButton) EndDrag();
  });
  connect(plot_, &QCustomPlot::mouseDoubleClick, this, [this] {
    if (editing_) return;
    drawing_.Fit();
    plot_->replot();
  });
}

std::function<void()> SheetChart::EditActOf(int key) {
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      return [this, key] { StepAlong((key == Qt::Key_Right) != state_.ReverseX); };
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return [this, key] { StepSeries(key == Qt::Key_PageDown); };
    case Qt::Key_Up:
    case Qt::Key_Down:
      return [this, key] { Nudge(key == Qt::Key_Up); };
    case Qt::Key_Insert:
      return [this] { InsertSelected(); };
    case Qt::Key_Delete:
      return [this] { DeleteSelected(); };
    case Qt::Key_Escape:
      return [this] { SetEditing(false); };
    default:
      return {};
  }
}

void SheetChart::SelectPoint(std::optional<ChartPoint> point) {
  selected_ = point;
  refusal_.clear();
  if (point) drawing_.Reach(*point);
  drawing_.Mark(point);
  for (const char* name : {"mnuChartPointInsert", "mnuChartPointDelete"}) {
    findChild<QAction*>(name)->setEnabled(point.has_value());
  }
  ShowHint();
  plot_->replot(QCustomPlot::rpQueuedReplot);
}

void SheetChart::StepAlong(bool forward) {
  const auto last = static_cast<int>(data_.X.size());
  const ChartPoint from = selected_.value_or(ChartPoint{0, forward ? -1 : last});
  if (data_.Series.empty()) return;
  if (const auto next = NextPoint(data_, from, forward)) SelectPoint(next);
}

/// To the point of another series at the same place, or the next one that is there.
void SheetChart::StepSeries(bool forward) {
  if (!selected_) return StepAlong(true);
  const int series = selected_->Series + (forward ? 1 : -1);
  if (series < 0 || series >= static_cast<int>(data_.Series.size())) return;
  const ChartPoint before{series, selected_->Position - 1};
  std::optional<ChartPoint> point = NextPoint(data_, before, true);
  if (!point) point = NextPoint(data_, before, false);
  SelectPoint(point);
}

double SheetChart::UnitsPerPixel(int series) const {
  const QCPAxis& axis = drawing_.ValueAxis(series);
  return axis.range().size() / std::max(1, axis.axisRect()->height());
}

void SheetChart::Nudge(bool up) {
  constexpr double kShare = 0.01;  // of the axis
  if (!selected_) return;
  const QCPAxis& axis = drawing_.ValueAxis(selected_->Series);
  const double step = DecimalStep(kShare * axis.range().size());
  const double by = up != axis.rangeReversed() ? step : -step;
  Write(*selected_, RoundedPoint(data_.ValueOf(*selected_) + by, step));
}

/// The axes stay as they are, or a point beyond their edge would run away from the pointer.
void SheetChart::DragTo(const QPoint& pixel) {
  const double value = drawing_.ValueAt(selected_->Series, pixel.y());
  auto& series = data_.Series[static_cast<std::size_t>(selected_->Series)];
  series.Values[static_cast<std::size_t>(selected_->Position)] =
      RoundedPoint(value, DecimalStep(UnitsPerPixel(selected_->Series)));
  drawing_.FillSeries(selected_->Series);
  drawing_.Mark(selected_);
  refusal_.clear();
  ShowHint();
  plot_->replot(QCustomPlot::rpQueuedReplot);
}

void SheetChart::CancelDrag() {
  dragging_ = false;
  ReadCells();
}

/// A click alone selects: it writes nothing. At the edge the axis gets room to drag on.
void SheetChart::EndDrag() {
  dragging_ = false;
  const ChartPoint point = *selected_;
  const double dragged = data_.ValueOf(point);
  ReadCells();
  if (selected_ != point || data_.ValueOf(point) == dragged) return;
  Write(point, dragged);
  if (selected_) drawing_.Reach(*selected_, true);
}

/// What the owner does in its events may fail, which is reported; the sheet is then as it was.
bool SheetChart::Change(const std::function<bool()>& change) {
  bool done = false;
  dragging_ = false;
  Trap trap(screen_, "mnuChartPoint_Click", "Form", "Spreadsheet");
  trap.Run([&] { done = change(); });
  ReadCells();
  return done;
}

void SheetChart::Write(ChartPoint point, double value) {
  const bool written = Change([&] { return WritePoint(sheet_, data_.PlaceOf(point), value); });
  SelectPoint(selected_);
  if (written) return;
  refusal_ = tr("The cell does not take the value %1.").arg(ToQt(NumberText(value)));
  screen_.Beep();
  ShowHint();
}

void SheetChart::ChangeLines(bool (*change)(Sheet&, const ChartData&, int)) {
  if (!selected_) return;
  const int position = selected_->Position;
  const bool done = Change([&] { return change(sheet_, data_, position); });
  if (!selected_) StepAlong(true);
  SelectPoint(selected_);
  if (done) return;
  refusal_ = tr("The table does not let points come or go here.");
  screen_.Beep();
  ShowHint();
}

void SheetChart::Travel(bool undo) {
  Change([&] { return undo ? sheet_.Undo() : sheet_.Redo(); });
}

QString SheetChart::PointText() const {
  if (!selected_) return {};
  const auto position = static_cast<std::size_t>(selected_->Position);
  return QString("%1, %2: %3")
      .arg(ToQt(data_.Series[static_cast<std::size_t>(selected_->Series)].Name),
           ToQt(data_.Labels[position]), ToQt(NumberText(data_.ValueOf(*selected_))));
}

}  // namespace lomaris

#include "windows/spreadsheet/sheet_chart.h"

#include <QActionGroup>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <cmath>

#include "windows/core/qt_text.h"
#include "windows/spreadsheet/key_kinds.h"

namespace lomaris {
namespace {

constexpr const char* kTypes[] = {"&Line", "&Area", "&Bar", "&Pie", "&X-Y (Scatter)"};

}  // namespace

SheetChart::SheetChart(Sheet& sheet, Ui& screen, ChartState& state, QWidget* parent)
    : QWidget(parent),
      sheet_(sheet),
      screen_(screen),
      state_(state),
      plot_(new Plot(this)),
      hint_(new QLabel(this)),
      drawing_(*plot_) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(plot_, 1);
  rows->addWidget(hint_);
  hint_->setObjectName("lblChartHint");
  hint_->setMargin(3);
  hint_->setTextFormat(Qt::PlainText);
  hint_->setWordWrap(true);
  plot_->setFocusPolicy(Qt::NoFocus);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Chart"));
  setWhatsThis(
      tr("The chart of the cells that were selected. A right click offers its types, its "
         "labels and legend, a copy of the picture, and Edit Points, which lets points be "
         "dragged: their cells follow. Esc returns to the spreadsheet."));
  refresh_.setSingleShot(true);
  connect(&refresh_, &QTimer::timeout, this, &SheetChart::ReadCells);
  connect(plot_, &Plot::LookChanged, this, &SheetChart::DrawAll);
  MakeChartMenu();
  MakePointMenu();
  FollowMouse();
}

void SheetChart::MakeChartMenu() {
  mnuChart_.setObjectName("mnuChart");
  const auto add = [this](const char* caption, const char* name, void (SheetChart::*slot)()) {
    QAction* action = mnuChart_.addAction(tr(caption), this, slot);
    action->setObjectName(name);
    return action;
  };
  add("&Return to Spreadsheet", "mnuChartReturn", &SheetChart::ReturnRequested);
  QMenu* types = mnuChart_.addMenu(tr("Chart &Type"));
  types->setObjectName("mnuChartType");
  auto* group = new QActionGroup(this);
  for (int type = 0; type < static_cast<int>(std::size(kTypes)); ++type) {
    QAction* action = types->addAction(tr(kTypes[type]));
    action->setCheckable(true);
    action->setObjectName(QString("mnuChartType%1").arg(type));
    group->addAction(action);
    connect(action, &QAction::triggered, this,
            [this, type] { SetType(static_cast<ChartType>(type)); });
  }
  add("&Data Series in Rows", "mnuChartRows", &SheetChart::ToggleRows);
  add("X Axis &Labels...", "mnuChartLabels", &SheetChart::AskLabels);
  QAction* legend = add("&Show Legend", "mnuChartLegend", &SheetChart::ToggleLegend);
  legend->setCheckable(true);
  add("&Copy to Clipboard", "mnuChartCopy", &SheetChart::CopyPicture);
  QAction* edit = mnuChart_.addAction(tr("&Edit Points"), this, &SheetChart::SetEditing);
  edit->setObjectName("mnuChartEdit");
  edit->setCheckable(true);
}

bool SheetChart::ShowArea(const CellArea& area) {
  ChartData chart = ReadChart(sheet_, area, state_);
  if (!chart.Fault.empty()) {
    ShowError(chart.Fault);
    if (state_.Type != ChartType::XY) return false;
    // The type was kept from other cells, and the menu that changes it is only on a chart.
    ChartState line = state_;
    line.Type = ChartType::Line;
    chart = ReadChart(sheet_, area, line);
    if (!chart.Fault.empty()) return false;
    state_ = line;
  }
  area_ = ChartedArea(chart.Area);
  Take(std::move(chart));
  return true;
}

bool SheetChart::ShowAs(const ChartState& wanted) {
  ChartData chart = ReadChart(sheet_, area_.Area(), wanted);
  if (!chart.Fault.empty()) {
    ShowError(chart.Fault);
    ShowMenuState();
    return false;
  }
  state_ = wanted;
  Take(std::move(chart));
  return true;
}

void SheetChart::Take(ChartData chart) {
  data_ = std::move(chart);
  stale_ = editing_ = dragging_ = false;
  selected_.reset();
  DrawAll();
  drawing_.Fit();
}

void SheetChart::ShowError(const std::string& text) {
  screen_.ShowMessage({.Text = text, .Title = "Error", .BoxIcon = Icon::Critical});
}

void SheetChart::SetType(ChartType type) {
  ChartState wanted = state_;
  wanted.Type = type;
  ShowAs(wanted);
}

/// The labels are chosen anew: the number of a column is not that of a row.
void SheetChart::ToggleRows() {
  ChartState wanted = state_;
  wanted.SeriesInRows = !state_.SeriesInRows;
  wanted.XLabels = ChartState().XLabels;
  ShowAs(wanted);
}

void SheetChart::AskLabels() {
  ChartState wanted = state_;
  if (AskXLabels(sheet_, wanted, screen_)) ShowAs(wanted);
}

void SheetChart::ToggleLegend() {
  state_.Legend = !state_.Legend;
  DrawAll();
}

void SheetChart::CopyPicture() {
  QGuiApplication::clipboard()->setPixmap(plot_->toPixmap());
}

bool SheetChart::CanEditPoints() const {
  return !sheet_.ReadOnly && sheet_.GridEdit && state_.Type != ChartType::Pie;
}

void SheetChart::SetEditing(bool editing) {
  if (dragging_) CancelDrag();
  editing_ = editing && CanEditPoints();
  refusal_.clear();
  SelectPoint({});
  if (editing_ && !data_.Series.empty()) SelectPoint(NextPoint(data_, {0, -1}, true));
  DrawAll();
}

void SheetChart::Refresh() {
  stale_ = true;
  if (isVisible()) refresh_.start(0);
}

void SheetChart::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (stale_) refresh_.start(0);
}

void SheetChart::FollowLines(Axis axis, int first, int count, bool inserted) {
  area_.Follow(axis, first, count, inserted);
}

void SheetChart::ReadCells() {
  if (dragging_) return;  // its end reads them
  stale_ = false;
  data_ = ReadChart(sheet_, area_.Area(), state_);
  editing_ = editing_ && CanEditPoints();
  const bool kept = editing_ && selected_ &&
                    selected_->Series < static_cast<int>(data_.Series.size()) &&
                    selected_->Position < static_cast<int>(data_.X.size()) &&
                    !std::isnan(data_.ValueOf(*selected_));
  if (!kept) selected_.reset();
  DrawAll();
}

void SheetChart::DrawAll() {
  const bool fitted = drawing_.IsFitted();
  drawing_.Draw(data_, state_);
  if (fitted && !editing_) drawing_.Fit();
  drawing_.Mark(selected_);
  const bool still = editing_ || state_.Type == ChartType::Pie;
  plot_->setInteractions(still ? QCP::Interactions() : QCP::iRangeDrag | QCP::iRangeZoom);
  ShowMenuState();
  ShowHint();
  plot_->replot(QCustomPlot::rpQueuedReplot);
}

void SheetChart::ShowMenuState() {
  const auto action = [this](const QString& name) { return findChild<QAction*>(name); };
  action(QString("mnuChartType%1").arg(static_cast<int>(state_.Type)))->setChecked(true);
  action("mnuChartLegend")->setChecked(state_.Legend);
  action("mnuChartEdit")->setChecked(editing_);
  action("mnuChartEdit")->setEnabled(CanEditPoints());
  action("mnuChartLabels")->setEnabled(state_.Type != ChartType::XY);
  // From its first use on it offers the other way, whichever is shown.
  QAction* rows = action("mnuChartRows");
  if (state_.SeriesInRows) {
    rows->setText(tr("Data in Columns"));
  } else if (rows->text() == tr("Data in Columns")) {
    rows->setText(tr("Data in Rows"));
  }
}

QString SheetChart::HintText() const {
  if (!data_.Fault.empty()) return ToQt(data_.Fault);
  QString left;
  if (data_.SeriesLeftOut) {
    left = tr("Only the first %1 series are drawn.").arg(kMostSeries) + "    ";
  }
  if (editing_) {
    return left +
           tr("%1    Left and Right choose a point, Page Up and Page Down a series; Up and Down "
              "move it, Ins and Del insert and delete; Esc stops editing.")
               .arg(PointText());
  }
  if (state_.Type == ChartType::Pie) {
    const int leftOut = SlicesOf(data_).LeftOut;
    if (leftOut > 0) return tr("A pie shows numbers above zero. Cells left out: %1.").arg(leftOut);
    return tr("Esc returns to the spreadsheet.");
  }
  return left + tr("The wheel zooms, dragging moves, a double click shows all; Esc returns to the "
                   "spreadsheet.");
}

void SheetChart::ShowHint() {
  hint_->setText(refusal_.isEmpty() ? HintText() : refusal_);
}

void SheetChart::contextMenuEvent(QContextMenuEvent* event) {
  if (dragging_) return;
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  if (editing_ && !byKey) {
    const QPoint pixel = plot_->mapFrom(this, event->pos());
    if (const std::optional<ChartPoint> near = drawing_.PointNear(pixel)) SelectPoint(near);
  }
  OpenMenu(byKey ? MenuPlace() : event->globalPos());
}

void SheetChart::OpenMenu(const QPoint& place) {
  QMenu& menu = editing_ ? mnuChartPoint_ : mnuChart_;
  menu.popup(place);
}

QPoint SheetChart::MenuPlace() const {
  return plot_->mapToGlobal(selected_ ? drawing_.PixelOf(*selected_).toPoint()
                                      : plot_->rect().center());
}

/// What a key of the chart does; nothing for others. Before a dragged point is dropped only Esc
/// does something.
std::function<void()> SheetChart::ActOf(const QKeyEvent& key) {
  const QKeySequence pressed(key.keyCombination());
  const bool escape = key.key() == Qt::Key_Escape;
  if (dragging_ && escape) return [this] { CancelDrag(); };
  if (dragging_) return [] {};
  if (kUndoKeys.contains(pressed)) return [this] { Travel(true); };
  if (kRedoKeys.contains(pressed)) return [this] { Travel(false); };
  if (kMenuKeys.contains(pressed)) return [this] { OpenMenu(MenuPlace()); };
  if (key.matches(QKeySequence::Copy)) return [this] { CopyPicture(); };
  if (key.modifiers() & ~Qt::KeypadModifier) return {};
  if (editing_) return EditActOf(key.key());
  if (escape) return [this] { emit ReturnRequested(); };
  return {};
}

bool SheetChart::event(QEvent* event) {
  // The window's menu may have the same keys; on the chart they are the chart's.
  if (event->type() == QEvent::ShortcutOverride && ActOf(static_cast<const QKeyEvent&>(*event))) {
    event->accept();
    return true;
  }
  return QWidget::event(event);
}

void SheetChart::keyPressEvent(QKeyEvent* event) {
  if (const std::function<void()> act = ActOf(*event)) {
    act();
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace lomaris

#include "windows/spreadsheet/spreadsheet.h"

#include <QApplication>
#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>

#include "spreadsheet/format_string.h"
#include "windows/core/help_window.h"
#include "windows/core/keystroke.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

/// The controls of a page take the place that the form has given to the widget they are in.
void PutIntoTabOrder(QWidget& widget, const QWidget& page) {
  QWidget* last = &widget;
  for (QWidget* each : page.findChildren<QWidget*>()) {
    if ((each->focusPolicy() & Qt::TabFocus) == 0 || each->window() != page.window()) continue;
    QWidget::setTabOrder(last, each);
    last = each;
  }
}

}  // namespace

Spreadsheet::Spreadsheet(QWidget* parent) : QWidget(parent), pages_(new QStackedWidget) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(pages_);
  setFocusPolicy(Qt::StrongFocus);  // a place in the tab order, which the grid takes
  setToolTip(tr("Right-click for options"));
}

QString Spreadsheet::WidestLine(const std::string& heading) {
  const QStringList lines = ToQt(heading).split('\n');
  return *std::ranges::max_element(lines, {}, [](const QString& line) { return line.size(); });
}

void Spreadsheet::Attach(Sheet& sheet, Ui& screen, Settings& settings, CopiedDates& copied) {
  sheet_ = &sheet;
  screen_ = &screen;
  settings_ = &settings;
  commands_ = std::make_unique<SheetCommands>(sheet, screen, copied);
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  grid_ = new GridView(sheet, screen, settings, *commands_);
  if (!accessibleName().isEmpty()) grid_->setAccessibleName(accessibleName());
  findBar_ = new FindBar(sheet);
  status_ = new SelectionStatus(sheet);
  layout->addWidget(grid_);
  layout->addWidget(findBar_);
  layout->addWidget(status_);
  pages_->addWidget(page);
  PutIntoTabOrder(*this, *page);
  setFocusPolicy(Qt::ClickFocus);  // the grid has the place in the tab order now
  // A sheet that outlives its window is not to tell a window that is gone.
  sheet.Events.Refresh = [grid = QPointer(grid_)](bool) {
    if (grid) grid->Refresh();
  };
  sheet.Events.LinesMoved = [table = QPointer(this)](Axis axis, int first, int count, bool in) {
    if (table) table->FollowLines(axis, first, count, in);
  };
  connect(grid_, &GridView::Click, this, &Spreadsheet::Click);
  connect(grid_, &GridView::KeyPressed, this, &Spreadsheet::KeyPressed);
  connect(grid_, &GridView::CurrentRowChanged, this, &Spreadsheet::CurrentRowChanged);
  connect(grid_, &GridView::SelectionMoved, this, &Spreadsheet::SelectionMoved);
  connect(grid_, &GridView::Refreshed, this, &Spreadsheet::Refreshed);
  connect(grid_, &GridView::SelectionMoved, status_, &SelectionStatus::Renew);
  ConnectMenu();
  ConnectFindBar();
  grid_->SetLook(look_);
  TakeShape();
  if (!formatString_.isEmpty()) TakeFormatString();
}

const Sheet& Spreadsheet::Shown() const {
  static const Sheet kEmpty;
  return sheet_ != nullptr ? *sheet_ : kEmpty;
}

/// In the order that lets each of them have its way.
void Spreadsheet::TakeShape() {
  const FormShape shape = std::exchange(shape_, {});
  if (shape.Rows) sheet_->SetRows(*shape.Rows);
  if (shape.Cols) sheet_->SetCols(*shape.Cols);
  if (shape.FixedRows || shape.FixedCols) {
    sheet_->SetFixed(shape.FixedRows.value_or(sheet_->FixedRows()),
                     shape.FixedCols.value_or(sheet_->FixedCols()));
  }
  if (shape.NumberRows) sheet_->SetNumberRows(*shape.NumberRows);
}

void Spreadsheet::SetFormatString(const QString& heads) {
  formatString_ = heads;
  if (sheet_ != nullptr) TakeFormatString();
}

void Spreadsheet::TakeFormatString() {
  const FormatHeads heads = ReadFormatString(FromQt(formatString_));
  SetHeads(*sheet_, heads);
  for (int col = 0; const FormatHead& head : heads.Cols) {
    if (!head.Text.empty()) SetColWidthText(col, ToQt(head.Text));
    ++col;
  }
}

void Spreadsheet::SetColour(QPalette::ColorRole role, const QColor& colour) {
  QPalette colours = palette();
  colours.setColor(role, colour);
  setPalette(colours);
}

bool Spreadsheet::event(QEvent* event) {
  const bool asked = event->type() == QEvent::QueryWhatsThis || event->type() == QEvent::WhatsThis;
  if (!asked || whatsThisHelpID_ <= 0 || settings_ == nullptr) return QWidget::event(event);
  if (event->type() == QEvent::WhatsThis) ShowHelpContents(whatsThisHelpID_, *settings_);
  event->accept();
  return true;
}

void Spreadsheet::ConnectMenu() {
  menu_ = new EditMenu(*sheet_, *commands_, this);
  connect(grid_, &GridView::MenuAsked, menu_,
          [this](const QPoint& globalPlace) { menu_->popup(globalPlace); });
  connect(menu_, &EditMenu::CommandChosen, grid_, &GridView::Run);
  connect(menu_, &EditMenu::TravelChosen, grid_, &GridView::Travel);
  connect(menu_, &EditMenu::FindChosen, findBar_, &FindBar::Open);
  connect(menu_, &EditMenu::ChartChosen, this, &Spreadsheet::ShowChart);
}

void Spreadsheet::ConnectFindBar() {
  connect(grid_, &GridView::FindAsked, findBar_, &FindBar::Open);
  connect(grid_, &GridView::FindNextAsked, findBar_, &FindBar::FindNext);
  connect(findBar_, &FindBar::Found, this, &Spreadsheet::ShowCell);
  connect(findBar_, &FindBar::Closed, grid_, qOverload<>(&QWidget::setFocus));
}

void Spreadsheet::ShowChart() {
  if (!EndEdit()) return;
  if (chart_ == nullptr) {
    chart_ = new SheetChart(*sheet_, *screen_, chartState_);
    pages_->addWidget(chart_);
    setTabOrder(grid_, chart_);
    connect(chart_, &SheetChart::ReturnRequested, this, &Spreadsheet::ShowGrid);
    connect(grid_, &GridView::Refreshed, chart_, &SheetChart::Refresh);
  }
  if (!chart_->ShowArea(sheet_->SelectedArea())) return;
  pages_->setCurrentWidget(chart_);
  chart_->setFocus();
}

void Spreadsheet::ShowGrid() {
  pages_->setCurrentIndex(0);
  grid_->setFocus();
}

/// No focus proxy does this: it would keep the place in the tab order that this was made with.
void Spreadsheet::focusInEvent(QFocusEvent* event) {
  if (grid_ == nullptr) return QWidget::focusInEvent(event);
  QWidget* const shown = pages_->currentIndex() == 0 ? grid_ : static_cast<QWidget*>(chart_);
  shown->setFocus(event->reason());
}

void Spreadsheet::FollowLines(Axis axis, int first, int count, bool inserted) {
  grid_->FollowLines(axis, first, count, inserted);
  if (chart_ != nullptr) chart_->FollowLines(axis, first, count, inserted);
}

void Spreadsheet::RefreshChart() {
  if (chart_ != nullptr) chart_->Refresh();
}

void Spreadsheet::SetChartType(int type) {
  if (type < 0 || type > static_cast<int>(ChartType::XY)) return;
  Redraw(chartState_.Type, static_cast<ChartType>(type));
}

bool Spreadsheet::EndEdit() {
  return grid_->EndEdit();
}

void Spreadsheet::SendKeystroke(int key) {
  if (grid_->isVisible()) {
    grid_->SendKeystroke(key);
  } else if (chart_ != nullptr && chart_->isVisible()) {
    lomaris::SendKeystroke(*chart_, key);
  }
}

void Spreadsheet::SendToFocus(const QWidget& window, int key) {
  QWidget* const focus = QApplication::focusWidget();
  if (focus == nullptr || !window.isAncestorOf(focus)) return;
  for (QWidget* each = focus; each != &window; each = each->parentWidget()) {
    if (auto* table = qobject_cast<Spreadsheet*>(each)) return table->SendKeystroke(key);
  }
  lomaris::SendKeystroke(*focus, key);
}

void Spreadsheet::SetMark(std::function<QString(int, int)> mark) {
  grid_->SetMark(std::move(mark));
}

int Spreadsheet::CurrentRow() const {
  return sheet_->SelectedArea().Empty() ? -1 : sheet_->Selected().Row;
}

void Spreadsheet::ShowCell(int row, int col) {
  if (pages_->currentIndex() != 0) ShowGrid();
  grid_->ShowCell({row, col});
}

}  // namespace lomaris

#include "windows/spreadsheet/grid_view.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QHeaderView>
#include <QVBoxLayout>
#include <cmath>
#include <limits>

#include "core/error_report.h"
#include "core/raised_flag.h"
#include "windows/core/qt_text.h"
#include "windows/spreadsheet/cell_delegate.h"

namespace lomaris {
namespace {

constexpr int kRowRoom = 6;  // pixels between the text of a row and its lines
constexpr double kHeadRoom = 1.2;
constexpr int kNoColumn = std::numeric_limits<int>::max();

}  // namespace

GridView::GridView(Sheet& sheet, Ui& screen, Settings& settings, SheetCommands& commands,
                   QWidget* parent)
    : QTableView(parent),
      sheet_(sheet),
      screen_(screen),
      commands_(commands),
      model_(new SheetModel(sheet, this)),
      editor_(new CellEditor(sheet, screen, settings, *viewport())),
      corner_(new QLabel(findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly))) {
  setModel(model_);
  setItemDelegate(new CellDelegate(*model_, this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setAutoScroll(false);  // a head's whole line must not scroll to its first cell
  setHorizontalScrollMode(ScrollPerPixel);
  setWordWrap(false);
  setAttribute(Qt::WA_InputMethodEnabled);
  setAccessibleName(tr("Table"));
  SetUpHeads();
  SetUpShortcuts();
  FitToFont();
  connect(editor_, &CellEditor::KeyPassed, this, [this](int key, Qt::KeyboardModifiers held) {
    QCoreApplication::postEvent(this, new QKeyEvent(QEvent::KeyPress, key, held));
  });
  connect(&drag_, &QTimer::timeout, this, &GridView::DragOn);
  waiting_ = true;
  TakeChanges();
}

void GridView::SetUpHeads() {
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setAccessibleName(tr("Column heads"));
  verticalHeader()->setAccessibleName(tr("Row heads"));
  auto* layout = new QVBoxLayout(corner_->parentWidget());
  layout->setContentsMargins(kCellMargin, 0, kCellMargin, 0);
  layout->addWidget(corner_);
  corner_->setAlignment(Qt::AlignCenter);
  corner_->setAttribute(Qt::WA_TransparentForMouseEvents);
  for (QHeaderView* head : {horizontalHeader(), verticalHeader()}) {
    head->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(head, &QWidget::customContextMenuRequested, this,
            [this, head](const QPoint& place) { OpenMenuOnHead(head->orientation(), place); });
    const auto mark = [this, head] { MarkWhole(head->orientation()); };
    connect(head, &QHeaderView::sectionPressed, this, mark);
    connect(head, &QHeaderView::sectionEntered, this, mark);
    connect(head, &QHeaderView::sectionClicked, this,
            [this] { emit Click(sheet_.Selected().RowSel, sheet_.Selected().ColSel); });
  }
}

void GridView::FitToFont() {
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowRoom);
  for (const auto& [col, sample] : samples_) FitColumn(col, sample);
  FitHeads();
}

/// Columns that have moved, or are new: as wide as their sample, or as any without one.
void GridView::FitColumnsFrom(int first) {
  const int heads = model_->HasHeads(Qt::Vertical) ? 1 : 0;
  for (int col = std::max(first, heads); col < sheet_.Cols(); ++col) {
    setColumnWidth(col - heads, horizontalHeader()->defaultSectionSize());
  }
  for (const auto& [col, sample] : samples_) {
    if (col >= first) FitColumn(col, sample);
  }
}

void GridView::FollowLines(Axis axis, int first, int count, bool inserted) {
  editor_->FollowLines(axis, first);
  if (axis == Axis::Rows) return;
  fitFrom_ = std::min(fitFrom_, first);
  std::map<int, QString> moved;
  for (auto& [col, sample] : samples_) {
    const bool behind = col >= first;
    if (behind && !inserted && col < first + count) continue;
    const int by = inserted ? count : -count;
    moved[behind ? col + by : col] = std::move(sample);
  }
  samples_ = std::move(moved);
}

/// The sample of a column of heads says how wide they are at least.
void GridView::FitColumn(int col, const QString& sample) {
  const int heads = model_->HasHeads(Qt::Vertical) ? 1 : 0;
  const int width = fontMetrics().horizontalAdvance(sample) + 2 * kCellMargin + kRowRoom;
  if (col < heads) {
    verticalHeader()->setMinimumWidth(width);
  } else if (col < sheet_.Cols()) {
    setColumnWidth(col - heads, width);
  }
}

/// The heads are as high as the tallest heading with room to spare.
void GridView::FitHeads() {
  horizontalHeader()->setVisible(model_->HasHeads(Qt::Horizontal));
  verticalHeader()->setVisible(model_->HasHeads(Qt::Vertical));
  if (!model_->HasHeads(Qt::Horizontal)) return;
  int tallest = 0;
  for (int col = 0; col < sheet_.Cols(); ++col) {
    tallest = std::max(tallest, fontMetrics().size(0, ToQt(sheet_.TextMatrix(0, col))).height());
  }
  horizontalHeader()->setMinimumHeight(static_cast<int>(std::ceil(tallest * kHeadRoom)));
  if (model_->HasHeads(Qt::Vertical)) corner_->setText(ToQt(sheet_.TextMatrix(0, 0)));
  const bool named = !corner_->text().isEmpty();
  const int width = corner_->sizeHint().width() + 2 * kCellMargin;
  if (named && verticalHeader()->minimumWidth() < width) verticalHeader()->setMinimumWidth(width);
}

void GridView::Refresh() {
  if (std::exchange(waiting_, true)) return;
  QMetaObject::invokeMethod(this, &GridView::TakeChanges, Qt::QueuedConnection);
}

void GridView::TakeChanges() {
  if (!std::exchange(waiting_, false)) return;
  const bool heads = model_->HasHeads(Qt::Vertical);
  {
    const RaisedFlag showing(showing_);
    model_->Update();
  }
  if (heads != model_->HasHeads(Qt::Vertical)) fitFrom_ = 0;
  FitColumnsFrom(std::exchange(fitFrom_, kNoColumn));
  FitHeads();
  if (editor_->IsLost()) editor_->GiveUp();
  const bool moved = sheet_.Selected().Row != shown_.Row || sheet_.Selected().Col != shown_.Col;
  ShowSelection();
  if (moved) Reveal({shown_.Row, shown_.Col});
  emit Refreshed();
}

void GridView::SetMark(CellMark mark) {
  model_->SetMark(std::move(mark));
  viewport()->update();
}

void GridView::SetColWidthText(int col, const QString& sample) {
  TakeChanges();
  samples_[col] = sample;
  FitColumn(col, sample);
}

/// What the sheet has changed since it was shown may concern the edited cell.
bool GridView::EndEdit() {
  TakeChanges();
  return editor_->End();
}

void GridView::SendKeystroke(int key) {
  QWidget* const target = editor_->IsOpen() ? editor_->Control() : this;
  QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, Qt::ControlModifier));
}

void GridView::Run(SheetCommand command) {
  if (!EndEdit()) return;
  TakeChanges();  // of the edit that has just ended
  commands_.Run(command);
  Refresh();  // of the selection, when it is all that has changed
}

void GridView::Travel(bool undo) {
  if (!EndEdit()) return;
  Trap trap(screen_, "mnuEditItem_Click", "Form", "Spreadsheet");
  trap.Run([&] { return undo ? sheet_.Undo() : sheet_.Redo(); });
}

void GridView::ShowCell(CellPlace place) {
  if (!EndEdit()) return;
  TakeChanges();
  SelectCell(place);
}

void GridView::Select(const Selection& selection) {
  sheet_.Select(selection);
  ShowSelection();
  Reveal({shown_.RowSel, shown_.ColSel});
}

void GridView::SelectWhole(Axis axis) {
  const CellArea all = sheet_.AllCells();
  const Selection now = sheet_.Selected();
  if (axis == Axis::Rows) {
    Select({now.Row, all.Left, now.RowSel, all.Right, axis});
  } else {
    Select({all.Top, now.Col, all.Bottom, now.ColSel, axis});
  }
}

/// The lines that a head has just selected are meant as whole ones.
void GridView::MarkWhole(Qt::Orientation heads) {
  Selection now = sheet_.Selected();
  const CellArea area = sheet_.SelectedArea();
  const CellArea all = sheet_.AllCells();
  const bool rows = heads == Qt::Vertical;
  if (rows ? area.Cols() != all.Cols() : area.Rows() != all.Rows()) return;
  now.Whole = rows ? Axis::Rows : Axis::Cols;
  sheet_.Select(now);
}

void GridView::ShowSelection() {
  shown_ = sheet_.Selected();
  const CellArea area = sheet_.SelectedArea();
  {
    const RaisedFlag showing(showing_);
    const QItemSelection range(model_->IndexOf({area.Top, area.Left}),
                               model_->IndexOf({area.Bottom, area.Right}));
    selectionModel()->setCurrentIndex(model_->IndexOf({shown_.Row, shown_.Col}),
                                      QItemSelectionModel::NoUpdate);
    selectionModel()->select(range, QItemSelectionModel::ClearAndSelect);
  }
  viewport()->update();  // the frame of the current cell
  emit SelectionMoved();
  const int row = area.Empty() ? -1 : shown_.Row;
  if (std::exchange(currentRow_, row) != row) emit CurrentRowChanged(row);
}

void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& gone) {
  QTableView::selectionChanged(selected, gone);
  if (!showing_) TakeHeadSelection();
}

/// A selection that was made by the heads, or by a program for people who do not see the screen.
void GridView::TakeHeadSelection() {
  const QItemSelection ranges = selectionModel()->selection();
  if (editor_->End() && !ranges.isEmpty()) {
    QRect area;
    for (const QItemSelectionRange& range : ranges) {
      area |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    }
    const CellPlace from = model_->PlaceOf(model_->index(area.top(), area.left()));
    const CellPlace to = model_->PlaceOf(model_->index(area.bottom(), area.right()));
    sheet_.Select({from.Row, from.Col, to.Row, to.Col});
  }
  ShowSelection();
}

/// Scrolls to a cell; of lines that are selected whole only across them.
void GridView::Reveal(CellPlace place) {
  const CellArea area = sheet_.SelectedArea();
  const CellArea all = sheet_.AllCells();
  QModelIndex index = model_->IndexOf(place);
  if (area.Rows() == all.Rows()) index = index.siblingAtRow(rowAt(0));
  if (area.Cols() == all.Cols()) index = index.siblingAtColumn(columnAt(0));
  if (index.isValid()) scrollTo(index);
}

void GridView::Edit(EditStart start, const QString& typed) {
  if (sheet_.AllCells().Empty()) return;
  const CellPlace place{shown_.Row, shown_.Col};
  const QModelIndex index = model_->IndexOf(place);
  scrollTo(index);
  editor_->Open(place, visualRect(index), start, typed);
}

void GridView::PlaceEditor() {
  if (editor_->IsOpen()) editor_->MoveTo(visualRect(model_->IndexOf(editor_->Place())));
}

void GridView::updateGeometries() {
  QTableView::updateGeometries();
  PlaceEditor();
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) FitToFont();
}

void GridView::hideEvent(QHideEvent* event) {
  QTableView::hideEvent(event);
  if (!event->spontaneous()) editor_->GiveUp();
}

}  // namespace lomaris

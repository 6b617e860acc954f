#include "windows/spreadsheet/grid_view.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QHeaderView>
#include <QVBoxLayout>

#include "core/error_report.h"
#include "core/raised_flag.h"
#include "windows/spreadsheet/cell_delegate.h"

namespace lomaris {

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
  setAttribute(Qt::WA_InputMethodEnabled);
  setAccessibleName(tr("Table"));
  SetLook({});
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
    connect(head, &QHeaderView::sectionResized, this, [this, head](int section, int, int size) {
      if (!sizing_) KeepSize(head->orientation(), section, size);
    });
    const auto mark = [this, head] { MarkWhole(head->orientation()); };
    connect(head, &QHeaderView::sectionPressed, this, mark);
    connect(head, &QHeaderView::sectionEntered, this, mark);
    connect(head, &QHeaderView::sectionClicked, this,
            [this] { emit Click(sheet_.Selected().RowSel, sheet_.Selected().ColSel); });
  }
}

void GridView::Refresh() {
  if (std::exchange(waiting_, true)) return;
  QMetaObject::invokeMethod(this, &GridView::TakeChanges, Qt::QueuedConnection);
}

void GridView::TakeChanges() {
  if (!std::exchange(waiting_, false)) return;
  const auto heads = [this] { return CellPlace{HeadsOf(Qt::Horizontal), HeadsOf(Qt::Vertical)}; };
  const CellPlace headsBefore = heads();
  {
    const RaisedFlag showing(showing_);
    const RaisedFlag sizing(sizing_);
    model_->Update();
  }
  if (heads() != headsBefore) fitFrom_ = {};
  FitMoved();
  if (editor_->IsLost()) editor_->GiveUp();
  const bool moved = sheet_.Selected().Row != shown_.Row || sheet_.Selected().Col != shown_.Col;
  ShowSelection();
  if (moved) Reveal({shown_.Row, shown_.Col});
  emit Refreshed();
}

void GridView::SetLook(const GridLook& look) {
  constexpr int kAcross = 1, kDown = 2;
  viewport()->setAutoFillBackground(look.BackStyle != 0);
  setFrameShape(look.BorderStyle == 0 ? NoFrame : StyledPanel);
  const auto resizing = [&](int way) {
    return (look.AllowUserResizing & way) != 0 ? QHeaderView::Interactive : QHeaderView::Fixed;
  };
  horizontalHeader()->setSectionResizeMode(resizing(kAcross));
  verticalHeader()->setSectionResizeMode(resizing(kDown));
  const auto scrolling = [&](int way) {
    return (look.ScrollBars & way) != 0 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
  };
  setHorizontalScrollBarPolicy(scrolling(kAcross));
  setVerticalScrollBarPolicy(scrolling(kDown));
  setWordWrap(look.WordWrap);
}

void GridView::SetMark(CellMark mark) {
  model_->SetMark(std::move(mark));
  viewport()->update();
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

/// Scrolls to a cell; of lines that are selected whole only across them. With the first cell the
/// fixed ones before it come into view, to which no key leads.
void GridView::Reveal(CellPlace place) {
  if (!isVisible()) return;  // its size is not known before
  const CellArea area = sheet_.SelectedArea();
  const CellArea all = sheet_.AllCells();
  QModelIndex index = model_->IndexOf(place);
  if (area.Rows() == all.Rows()) index = index.siblingAtRow(rowAt(0));
  if (area.Cols() == all.Cols()) index = index.siblingAtColumn(columnAt(0));
  if (!index.isValid()) return;
  if (place.Row == all.Top && area.Rows() < all.Rows()) scrollTo(index.siblingAtRow(0));
  if (place.Col == all.Left && area.Cols() < all.Cols()) scrollTo(index.siblingAtColumn(0));
  scrollTo(index);
}

void GridView::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  TakeChanges();
  Reveal({shown_.Row, shown_.Col});
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

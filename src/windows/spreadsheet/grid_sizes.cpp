// How wide the columns of the table are, and how high its rows.

#include <QHeaderView>
#include <cmath>

#include "core/raised_flag.h"
#include "windows/core/qt_text.h"
#include "windows/spreadsheet/cell_delegate.h"
#include "windows/spreadsheet/grid_view.h"

namespace lomaris {
namespace {

constexpr int kRowRoom = 6;  // pixels between the text of a row and its lines
constexpr double kHeadRoom = 1.2;

/// What is kept for lines moves with them.
template <class Size>
void MoveSizes(std::map<int, Size>& sizes, int first, int count, bool inserted) {
  std::map<int, Size> moved;
  for (auto& [line, size] : sizes) {
    const bool behind = line >= first;
    if (behind && !inserted && line < first + count) continue;
    const int by = inserted ? count : -count;
    moved[behind ? line + by : line] = std::move(size);
  }
  sizes = std::move(moved);
}

}  // namespace

int GridView::HeadsOf(Qt::Orientation orientation) const {
  return model_->HasHeads(orientation) ? 1 : 0;
}

int GridView::ColWidth(int col) {
  TakeChanges();
  const int heads = HeadsOf(Qt::Vertical);
  return col < heads ? verticalHeader()->width() : columnWidth(col - heads);
}

int GridView::RowHeight(int row) {
  TakeChanges();
  const int heads = HeadsOf(Qt::Horizontal);
  return row < heads ? horizontalHeader()->height() : rowHeight(row - heads);
}

QString GridView::ColWidthText(int col) const {
  const auto width = widths_.find(col);
  return width == widths_.end() ? QString() : width->second.Sample;
}

void GridView::SetColWidth(int col, const ColumnWidth& width) {
  TakeChanges();
  widths_[col] = width;
  FitColumn(col, width);
}

void GridView::SetRowHeight(int row, int height) {
  TakeChanges();
  heights_[row] = height;
  FitRow(row, height);
}

/// The user has made a line wider or higher.
void GridView::KeepSize(Qt::Orientation heads, int section, int size) {
  if (heads == Qt::Horizontal) {
    widths_[section + HeadsOf(Qt::Vertical)] = {.Pixels = size};
  } else {
    heights_[section + HeadsOf(Qt::Horizontal)] = size;
  }
}

void GridView::FitToFont() {
  const RaisedFlag sizing(sizing_);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowRoom);
  for (const auto& [row, height] : heights_) FitRow(row, height);
  for (const auto& [col, width] : widths_) FitColumn(col, width);
  FitHeads();
}

/// Lines that have moved, or are new: of the size that is kept for them, or as any without one.
void GridView::FitMoved() {
  const RaisedFlag sizing(sizing_);
  const CellPlace first = std::exchange(fitFrom_, {kNoLine, kNoLine});
  const int headCols = HeadsOf(Qt::Vertical);
  for (int col = std::max(first.Col, headCols); col < sheet_.Cols(); ++col) {
    setColumnWidth(col - headCols, horizontalHeader()->defaultSectionSize());
  }
  for (auto width = widths_.lower_bound(first.Col); width != widths_.end(); ++width) {
    FitColumn(width->first, width->second);
  }
  const int headRows = HeadsOf(Qt::Horizontal);
  for (int row = std::max(first.Row, headRows); row < sheet_.Rows(); ++row) {
    setRowHeight(row - headRows, verticalHeader()->defaultSectionSize());
  }
  for (auto height = heights_.lower_bound(first.Row); height != heights_.end(); ++height) {
    FitRow(height->first, height->second);
  }
  FitHeads();
}

void GridView::FollowLines(Axis axis, int first, int count, bool inserted) {
  editor_->FollowLines(axis, first);
  if (axis == Axis::Cols) {
    fitFrom_.Col = std::min(fitFrom_.Col, first);
    MoveSizes(widths_, first, count, inserted);
  } else if (!heights_.empty()) {
    fitFrom_.Row = std::min(fitFrom_.Row, first);
    MoveSizes(heights_, first, count, inserted);
  }
}

/// The sample of a column of heads says how wide they are at least.
void GridView::FitColumn(int col, const ColumnWidth& width) {
  const RaisedFlag sizing(sizing_);
  const int heads = HeadsOf(Qt::Vertical);
  const int pixels = width.Pixels.value_or(fontMetrics().horizontalAdvance(width.Sample) +
                                           2 * kCellMargin + kRowRoom);
  if (col >= heads && col < sheet_.Cols()) {
    setColumnWidth(col - heads, pixels);
  } else if (col < heads) {
    verticalHeader()->setMinimumWidth(pixels);
    verticalHeader()->setMaximumWidth(width.Pixels.value_or(QWIDGETSIZE_MAX));
  }
}

void GridView::FitRow(int row, int height) {
  const RaisedFlag sizing(sizing_);
  const int heads = HeadsOf(Qt::Horizontal);
  if (row >= heads && row < sheet_.Rows()) {
    setRowHeight(row - heads, height);
  } else if (row < heads) {
    horizontalHeader()->setFixedHeight(height);
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

}  // namespace lomaris

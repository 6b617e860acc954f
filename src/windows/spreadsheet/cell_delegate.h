#pragma once

#include <QStyledItemDelegate>

#include "windows/spreadsheet/sheet_model.h"

namespace lomaris {

/// Paints the cells of a table in the colours of its palette: read-only cells greyed, heads like
/// heads, and a tint with a corner for a cell in which something is wrong. Cells are edited
/// elsewhere.
class CellDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// `model` outlives this.
  explicit CellDelegate(const SheetModel& model, QObject* parent = nullptr)
      : QStyledItemDelegate(parent), model_(model) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  const SheetModel& model_;
};

/// Room between a cell's text and its edge, in pixels.
inline constexpr int kCellMargin = 4;

}  // namespace lomaris

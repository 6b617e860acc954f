// What a sheet keeps of its columns and cells beside their texts.

#include "spreadsheet/sheet.h"

namespace lomaris {

void Sheet::SetColFormat(int col, Format format) {
  grid_.StyleOf(col).Cells = std::move(format);
  Refresh(false);
}

template <class Change>
void Sheet::ChangeStyle(int row, int col, Change&& change) {
  CellStyle style = grid_.StyleOf(row, col);
  change(style);
  grid_.SetStyle(row, col, std::move(style));
  Refresh(false);
}

void Sheet::SetCellFormat(int row, int col, Format format) {
  ChangeStyle(row, col, [&](CellStyle& style) { style.Own = std::move(format); });
}

Alignment Sheet::CellAlignment(int row, int col) const {
  const Alignment own = grid_.StyleOf(row, col).Align;
  if (own != Alignment::General) return own;
  const ColStyle& style = grid_.StyleOf(col);
  return row < fixedRows_ || col < fixedCols_ ? style.Heads : style.Align;
}

void Sheet::SetCellAlignment(int row, int col, Alignment alignment) {
  ChangeStyle(row, col, [&](CellStyle& style) { style.Align = alignment; });
}

void Sheet::SetColAlignment(int col, Alignment alignment) {
  grid_.StyleOf(col).Align = alignment;
  Refresh(false);
}

void Sheet::SetFixedAlignment(int col, Alignment alignment) {
  grid_.StyleOf(col).Heads = alignment;
  Refresh(false);
}

void Sheet::SetCellFontBold(int row, int col, bool bold) {
  ChangeStyle(row, col, [&](CellStyle& style) { style.Bold = bold; });
}

}  // namespace lomaris

#pragma once

#include <map>
#include <optional>
#include <vector>

#include "spreadsheet/cell.h"

namespace lomaris {

/// Whole rows or columns with all that belongs to them, out of their grid. Places count from the
/// first of them.
struct CellLines {
  int Count = 0;
  std::vector<Cell> Cells = {};  ///< row by row
  std::map<CellPlace, CellStyle> Styles = {};
  std::vector<char> RowLocks = {};       ///< of rows
  std::vector<ColStyle> ColStyles = {};  ///< of columns

  bool operator==(const CellLines&) const = default;
};

/// The content of a table: texts, formats and looks, locked rows. It knows nothing of who may
/// change what. A row or column outside it is run-time error 9.
class CellGrid {
 public:
  int Rows() const { return rows_; }
  int Cols() const { return cols_; }

  const Cell& At(int row, int col) const { return cells_[Index(row, col)]; }
  Cell& At(int row, int col) { return cells_[Index(row, col)]; }

  const ColStyle& StyleOf(int col) const { return colStyles_[ColIndex(col)]; }
  ColStyle& StyleOf(int col) { return colStyles_[ColIndex(col)]; }

  CellStyle StyleOf(int row, int col) const;
  void SetStyle(int row, int col, CellStyle style);

  /// The format that holds for a cell.
  const Format& FormatOf(int row, int col) const;

  bool RowLocked(int row) const { return rowLocks_[RowIndex(row)] != 0; }
  void SetRowLocked(int row, bool locked) { rowLocks_[RowIndex(row)] = locked ? 1 : 0; }

  /// Error 9 or 7 where `Put` or `Take` would fail: the lines are not there, or the grid would have
  /// more cells than memory is meant for.
  void CheckPut(Axis axis, int first, int count) const;
  void CheckTake(Axis axis, int first, int count) const;

  /// Empty lines that fit this grid.
  CellLines BlankLines(Axis axis, int count) const;

  /// Takes lines out, and puts lines in before line `first`. When it fails nothing is changed.
  CellLines Take(Axis axis, int first, int count);
  void Put(Axis axis, int first, CellLines lines);

  bool operator==(const CellGrid&) const = default;

 private:
  std::size_t Index(int row, int col) const;
  std::size_t RowIndex(int row) const;
  std::size_t ColIndex(int col) const;
  int Lines(Axis axis) const { return axis == Axis::Rows ? rows_ : cols_; }
  void MoveStyles(Axis axis, int first, int by);
  void TakeCells(Axis axis, int first, CellLines& lines);
  void PutCells(Axis axis, int first, CellLines& lines);

  int rows_ = 0;
  int cols_ = 0;
  std::vector<Cell> cells_;                // row by row
  std::map<CellPlace, CellStyle> styles_;  // only cells that differ from their column
  std::vector<char> rowLocks_;
  std::vector<ColStyle> colStyles_;
};

}  // namespace lomaris

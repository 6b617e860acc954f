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
  std::map<CellPlace, Format> Formats = {};
  std::vector<char> RowLocks = {};      ///< of rows
  std::vector<Format> ColFormats = {};  ///< of columns

  bool operator==(const CellLines&) const = default;
};

/// The content of a table: texts, formats, locked rows. It knows nothing of who may change what.
/// A row or column outside it is run-time error 9.
class CellGrid {
 public:
  int Rows() const { return rows_; }
  int Cols() const { return cols_; }

  const Cell& At(int row, int col) const { return cells_[Index(row, col)]; }
  Cell& At(int row, int col) { return cells_[Index(row, col)]; }

  const Format& ColFormat(int col) const { return colFormats_[ColIndex(col)]; }
  Format& ColFormat(int col) { return colFormats_[ColIndex(col)]; }

  /// The cell's own format; of kind 0 where the column's holds.
  Format OwnFormat(int row, int col) const;
  void SetOwnFormat(int row, int col, Format format);

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
  void MoveFormats(Axis axis, int first, int by);
  void TakeCells(Axis axis, int first, CellLines& lines);
  void PutCells(Axis axis, int first, CellLines& lines);

  int rows_ = 0;
  int cols_ = 0;
  std::vector<Cell> cells_;              // row by row
  std::map<CellPlace, Format> formats_;  // only cells that differ from their column
  std::vector<char> rowLocks_;
  std::vector<Format> colFormats_;
};

}  // namespace lomaris

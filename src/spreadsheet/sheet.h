#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "spreadsheet/cell_grid.h"
#include "spreadsheet/sheet_history.h"

namespace lomaris {

/// What a sheet tells its owner and the view that shows it. Any of them may be left empty.
///
/// An owner with tables that run along with the rows changes them in the Before events, which also
/// come when a step is undone or redone. What an owner writes into the sheet from an event belongs
/// to the step that raised it; while a step is undone or redone such writes are dropped, because
/// the step holds what they were. An event that fails ends its step, which is taken back: for rows
/// that had come or gone by then the events of the opposite change are raised, without a say in it,
/// so that an owner's tables go back as well. The same holds while a step is undone or redone.
struct SheetEvents {
  /// After any edit or command, undone and redone ones included. Not after the owner's own writes.
  std::function<void()> Change = {};

  std::function<void(int first, int count, bool& cancel)> BeforeRowInsert = {};
  std::function<void(int first, int count, bool& cancel)> BeforeRowDelete = {};
  std::function<void(int first, int count)> AfterRowInsert = {};
  std::function<void(int first, int count)> AfterRowDelete = {};

  /// For the view: what it shows of cells, heads, formats or locked rows is out of date; `shape`:
  /// the number of rows or columns as well. It comes after each write of the owner, too, so the
  /// view should gather them. The plain members of the sheet, as `ReadOnly`, change untold.
  std::function<void(bool shape)> Refresh = {};

  /// For the view: lines have come or gone, by whatever. It comes in the middle of the change, so
  /// the view only moves the places that it keeps.
  std::function<void(Axis axis, int first, int count, bool inserted)> LinesMoved = {};
};

/// The model of the one table editor: texts with formats, what may be edited, the selection, and
/// the history of what was done. Rows and columns count from 0, the fixed ones first; those are
/// heads, which no command changes.
///
/// The owner fills the sheet with the `Set...` routines. Outside a step they load: the history is
/// forgotten, because it tells of other content. A row or column that is not there is error 9.
class Sheet {
 public:
  explicit Sheet(int rows = 2, int cols = 2, int fixedRows = 1, int fixedCols = 1);

  bool ReadOnly = false;  ///< the whole table refuses edits
  int ReadOnlyRows = 0;   ///< so many rows behind the fixed ones refuse edits
  int ReadOnlyCols = 0;
  bool KeepRows = false;  ///< commands neither add nor take out rows: the owner gives them meaning
  bool KeepCols = false;  ///< the same of columns
  bool Modified = false;  ///< set by every change; the owner clears it
  bool GridEdit = true;   ///< cells can be edited in place
  SheetEvents Events;

  int Rows() const { return grid_.Rows(); }
  int Cols() const { return grid_.Cols(); }
  int FixedRows() const { return fixedRows_; }
  int FixedCols() const { return fixedCols_; }
  void SetFixed(int rows, int cols);
  void SetRows(int rows) { SetLines(Axis::Rows, rows); }
  void SetCols(int cols) { SetLines(Axis::Cols, cols); }

  /// The fixed first column shows 1, 2, ... from the first row that is not fixed.
  bool NumberRows() const { return numberRows_; }
  void SetNumberRows(bool numberRows);

  const std::string& TextMatrix(int row, int col) const { return grid_.At(row, col).Text; }
  const Cell& At(int row, int col) const { return grid_.At(row, col); }

  /// A text that is there already keeps the full date behind it.
  void SetTextMatrix(int row, int col, std::string text) { SetCell(row, col, {std::move(text)}); }
  void SetCell(int row, int col, Cell cell);

  /// A text that follows from those of other cells, and so belongs to no step: its owner writes it
  /// whenever those have changed, while a step is undone or redone as well, and the history stays.
  void SetDerivedText(int row, int col, std::string text);

  /// Shows a date-time in the cells' form and keeps it whole behind the text.
  void SetDate(int row, int col, ModelDateTime dateTime);

  /// The date of a cell: the full one while its text is what it was when the date was set, else
  /// what the text says; nothing when that is no date.
  std::optional<ModelDateTime> DateOf(int row, int col) const;

  /// Heads in the first row; a "|" breaks the line.
  void SetColHeadings(std::span<const std::pair<int, std::string>> headings);

  /// One more row at the end, its texts separated by tabs from the first column on.
  void AddItem(std::string_view texts);

  FormatKind ColFormat(int col) const { return grid_.StyleOf(col).Cells.Kind; }
  const std::string& ColFormatList(int col) const { return grid_.StyleOf(col).Cells.List; }
  void SetColFormat(int col, Format format);
  /// Kind 0: the column's format holds.
  FormatKind CellFormat(int row, int col) const { return grid_.StyleOf(row, col).Own.Kind; }
  std::string CellFormatList(int row, int col) const { return grid_.StyleOf(row, col).Own.List; }
  void SetCellFormat(int row, int col, Format format);
  /// The one that holds for a cell.
  const Format& FormatOf(int row, int col) const { return grid_.FormatOf(row, col); }

  /// Of a cell that has none of its own it is that of its column, of a head the one of the column's
  /// heads.
  Alignment CellAlignment(int row, int col) const;
  void SetCellAlignment(int row, int col, Alignment alignment);
  void SetColAlignment(int col, Alignment alignment);
  Alignment FixedAlignment(int col) const { return grid_.StyleOf(col).Heads; }
  void SetFixedAlignment(int col, Alignment alignment);
  bool CellFontBold(int row, int col) const { return grid_.StyleOf(row, col).Bold; }
  void SetCellFontBold(int row, int col, bool bold);

  bool ReadOnlyRow(int row) const { return grid_.RowLocked(row); }
  void SetReadOnlyRow(int row, bool readOnly);
  bool IsReadOnly(int row, int col) const;
  bool CanEdit(int row, int col) const { return GridEdit && !IsReadOnly(row, col); }
  /// Rows and columns that a command may take out, or insert others before.
  bool IsFreeLine(Axis axis, int line) const;

  /// Ends an edit with the text of the cell's editor. False: it was refused and nothing changed.
  bool EndEdit(int row, int col, std::string_view text);
  /// The same for a date picker.
  bool EndEdit(int row, int col, ModelDateTime dateTime);

  /// Kept within the cells that are not fixed, also when rows or columns go; whole lines that were
  /// chosen as such are kept whole.
  const Selection& Selected() const { return selected_; }
  CellArea SelectedArea() const;
  CellArea AllCells() const { return {fixedRows_, fixedCols_, Rows() - 1, Cols() - 1}; }
  void Select(const Selection& selection);
  void SelectArea(const CellArea& area) { Select({area.Top, area.Left, area.Bottom, area.Right}); }

  /// The texts of the selected cells as the clipboard takes them: tabs between the cells of a row,
  /// a line break between rows. A text that is set fills the selection from its corner on,
  /// read-only cells as well; what does not fit is lost, and cells that it does not reach stay.
  std::string Clip() const;
  void SetClip(std::string_view text);

  /// Lines of empty cells before line `first`, or lines taken out. For rows the owner is asked
  /// first: false when it cancels, and nothing has changed.
  bool InsertLines(Axis axis, int first, int count);
  bool DeleteLines(Axis axis, int first, int count);

  bool CanUndo() const { return !ReadOnly && history_.Has(true); }
  bool CanRedo() const { return !ReadOnly && history_.Has(false); }
  /// False when there is nothing to undo, or when the owner cancelled one of its row events: the
  /// sheet is then as it was.
  bool Undo() { return CanUndo() && Travel(true); }
  bool Redo() { return CanRedo() && Travel(false); }

  /// Makes all that `work` writes one step of the history and raises `Change`. What it wrote is
  /// taken back when it gives false or fails. A step within a step belongs to the outer one. Gives
  /// what `work` gave.
  bool AsStep(const std::function<bool()>& work);

 private:
  void SetLines(Axis axis, int count);
  template <class Change>
  void ChangeStyle(int row, int col, Change&& change);
  void CheckLines(const LineChange& change) const;
  void ApplyLines(LineChange& change, bool insert);
  void RecordLines(LineChange change);
  void NumberFrom(int first);
  void Refresh(bool shape) const;
  bool AskBefore(const LineChange& change, bool insert) const;
  void TellAfter(const LineChange& change, bool insert) const;
  bool ChangeLines(LineChange change);
  bool Travel(bool undo);
  bool ReplayChange(SheetChange& change, bool undo);
  void Restore(SheetStep& step, std::size_t count, bool undone);
  void RestoreChange(SheetChange& change, bool undo);
  void Swap(CellWrites& writes, bool undo);
  void FinishStep();
  void TakeBack();

  CellGrid grid_;
  int fixedRows_;
  int fixedCols_;
  bool numberRows_ = false;
  Selection selected_;
  SheetHistory history_;
  SheetStep step_;          // the one under way
  bool inStep_ = false;     // a step is under way
  bool replaying_ = false;  // a step is being undone, redone or taken back
};

}  // namespace lomaris

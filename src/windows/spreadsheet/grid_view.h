#pragma once

#include <QLabel>
#include <QTableView>
#include <QTimer>
#include <limits>
#include <map>
#include <optional>

#include "spreadsheet/sheet_commands.h"
#include "spreadsheet/sheet_queries.h"
#include "windows/spreadsheet/cell_editor.h"
#include "windows/spreadsheet/sheet_model.h"

namespace lomaris {

/// How a form wants a table to look; the numbers are those that forms store.
struct GridLook {
  int BackStyle = 1;          ///< 0: the form is seen beyond the cells
  int BorderStyle = 1;        ///< 0: no frame
  int AllowUserResizing = 1;  ///< 0: of no lines, 1: of columns, 2: of rows, 3: of both
  int ScrollBars = 3;         ///< 0: none, 1: the horizontal one, 2: the vertical one, 3: both
  bool WordWrap = false;  ///< long texts are broken into lines, as many as their row has room for
};

/// As wide as a text, or as so many pixels.
struct ColumnWidth {
  QString Sample = {};
  std::optional<int> Pixels = {};
};

/// The cells of a sheet on the screen, with the keys and the pointer. The sheet's selection is the
/// truth, the view's follows it; what is selected by the heads goes the other way.
///
/// Tab moves from cell to cell and stays in the table; Ctrl+Tab and Ctrl+Shift+Tab leave it.
/// Shift+Space and Ctrl+Space select whole rows and columns.
class GridView : public QTableView {
  Q_OBJECT

 public:
  /// All of them outlive this.
  GridView(Sheet& sheet, Ui& screen, Settings& settings, SheetCommands& commands,
           QWidget* parent = nullptr);

  /// The sheet has changed. Shown on the next turn of the event loop, with all changes until then.
  void Refresh();

  /// Shows at once what is waiting to be shown.
  void TakeChanges();

  void SetMark(CellMark mark);
  void SetLook(const GridLook& look);

  int ColWidth(int col);
  int RowHeight(int row);
  QString ColWidthText(int col) const;
  void SetColWidth(int col, const ColumnWidth& width);
  void SetRowHeight(int row, int height);

  /// Lines of the sheet have come or gone: what is kept for their sizes moves with them.
  void FollowLines(Axis axis, int first, int count, bool inserted);

  bool EndEdit();
  void SendKeystroke(int key);
  void Run(SheetCommand command);
  void Travel(bool undo);

  /// Selects one cell and scrolls to it, once an edit under way has ended.
  void ShowCell(CellPlace place);

 signals:
  void KeyPressed(int key, Qt::KeyboardModifiers modifiers);
  void Click(int row, int col);
  void CurrentRowChanged(int row);
  void SelectionMoved();
  void Refreshed();
  void MenuAsked(const QPoint& globalPlace);
  void FindAsked();
  void FindNextAsked(bool backward);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& gone) override;

 protected slots:
  void updateGeometries() override;

 private:
  static constexpr int kNoLine = std::numeric_limits<int>::max();

  void SetUpHeads();

  // grid_sizes.cpp
  int HeadsOf(Qt::Orientation orientation) const;
  void KeepSize(Qt::Orientation heads, int section, int size);
  void FitToFont();
  void FitMoved();
  void FitColumn(int col, const ColumnWidth& width);
  void FitRow(int row, int height);
  void FitHeads();

  void AskForMenu();
  void OpenMenuOnHead(Qt::Orientation orientation, const QPoint& place);

  void Select(const Selection& selection);
  void SelectCell(CellPlace place) { Select({place.Row, place.Col, place.Row, place.Col}); }
  void SelectWhole(Axis axis);
  void MarkWhole(Qt::Orientation heads);
  void ShowSelection();
  void TakeHeadSelection();
  void Reveal(CellPlace place);

  void Edit(EditStart start, const QString& typed = {});
  void PlaceEditor();

  void SetUpShortcuts();
  const std::function<void()>* ShortcutOf(const QKeyEvent& key) const;
  bool RunShortcut(const QKeyEvent& key);
  bool Move(const QKeyEvent& key);
  bool BeginEdit(const QKeyEvent& key);
  CellPlace Target(int key, bool jump, CellPlace from) const;
  int PageRows() const;
  void StepAlong(bool next);

  CellPlace CellNear(const QPoint& place) const;
  void DragOn();
  void DragTo(const QPoint& place);

  Sheet& sheet_;
  Ui& screen_;
  SheetCommands& commands_;
  SheetModel* model_;
  CellEditor* editor_;
  QLabel* corner_;  // over the button where the heads meet
  std::map<QKeySequence, std::function<void()>> shortcuts_;
  std::map<int, ColumnWidth> widths_;  // of columns that differ from others
  std::map<int, int> heights_;         // of such rows, in pixels
  CellPlace fitFrom_{kNoLine, 0};      // the first row and column that are to be fitted anew
  bool sizing_ = false;                // the sizes that are kept, on their way into the view
  bool waiting_ = false;               // for the next turn of the event loop
  bool showing_ = false;               // the sheet's selection on its way into the view
  bool doubleClicked_ = false;
  Selection shown_;
  int currentRow_ = -1;  // as it was last told
  QTimer drag_;  // runs while cells are selected by the pointer, and scrolls when that is outside
};

}  // namespace lomaris

#pragma once

#include <QStackedWidget>
#include <QWidget>
#include <functional>
#include <memory>

#include "core/ports/settings.h"
#include "core/ports/ui.h"
#include "spreadsheet/chart_state.h"
#include "spreadsheet/sheet_commands.h"
#include "windows/spreadsheet/edit_menu.h"
#include "windows/spreadsheet/find_bar.h"
#include "windows/spreadsheet/grid_view.h"
#include "windows/spreadsheet/selection_status.h"
#include "windows/spreadsheet/sheet_chart.h"

namespace lomaris {

/// The one table editor of the program: shows a `Sheet`, edits its cells in place, offers its
/// commands by menu and keyboard, and draws its chart. It is put into forms by name and given its
/// sheet afterwards.
///
/// Tab moves from cell to cell and stays in the table; Ctrl+Tab and Ctrl+Shift+Tab leave it.
///
/// Before `Attach` only the properties of the chart may be used, which forms set.
class Spreadsheet : public QWidget {
  Q_OBJECT
  Q_PROPERTY(int ChartType READ ChartTypeNumber WRITE SetChartType)
  Q_PROPERTY(int XLabels READ XLabels WRITE SetXLabels)
  Q_PROPERTY(bool ReverseX READ ReverseX WRITE SetReverseX)
  Q_PROPERTY(bool ReverseY READ ReverseY WRITE SetReverseY)
  Q_PROPERTY(bool ReverseY2 READ ReverseY2 WRITE SetReverseY2)

 public:
  explicit Spreadsheet(QWidget* parent = nullptr);

  /// Once. All four outlive this. Takes the sheet's `Events.Refresh` and `Events.LinesMoved`; its
  /// other events stay the owner's.
  void Attach(Sheet& sheet, Ui& screen, Settings& settings, CopiedDates& copied);

  /// Makes a column as wide as a sample text.
  void SetColWidthText(int col, const QString& sample);

  /// Ends an edit under way. False: the text was refused, the editor is still open. The owner asks
  /// for it before it takes the cells.
  bool EndEdit();

  /// The form's Edit menu works through the keys: Cut, Copy and Paste as if typed here, in the
  /// cell's editor while one is open, or on the chart while that is shown.
  void SendKeystroke(int key);

  /// The same for whichever control of a window has the focus, a table or not.
  static void SendToFocus(const QWidget& window, int key);

  /// What is wrong with a cell, for a mark and its tool tip; empty: nothing. Asked while painting.
  void SetMark(std::function<QString(int row, int col)> mark);

  /// The row of the current cell, the fixed ones counted; -1 where there are no cells.
  int CurrentRow() const;

  /// Selects a cell and scrolls to it; a chart makes way for the grid.
  void ShowCell(int row, int col);

  /// Draws a chart that is shown anew, after something has changed.
  void RefreshChart();

  /// A number of the enumeration; others are ignored.
  int ChartTypeNumber() const { return static_cast<int>(chartState_.Type); }
  void SetChartType(int type);
  int XLabels() const { return chartState_.XLabels; }
  void SetXLabels(int line) { Redraw(chartState_.XLabels, line); }
  bool ReverseX() const { return chartState_.ReverseX; }
  void SetReverseX(bool reverse) { Redraw(chartState_.ReverseX, reverse); }
  bool ReverseY() const { return chartState_.ReverseY; }
  void SetReverseY(bool reverse) { Redraw(chartState_.ReverseY, reverse); }
  bool ReverseY2() const { return chartState_.ReverseY2; }
  void SetReverseY2(bool reverse) { Redraw(chartState_.ReverseY2, reverse); }

 signals:
  /// A cell, or the head of its row or column, was clicked.
  void Click(int row, int col);
  /// A key was pressed in the grid, which then does with it what it does.
  void KeyPressed(int key, Qt::KeyboardModifiers modifiers);
  /// As `CurrentRow` gives it.
  void CurrentRowChanged(int row);

  /// The cells shown have changed, by whomever; gathered, on the next turn of the event loop.
  void Refreshed();

 private:
  void ConnectMenu();
  void ConnectFindBar();
  void ShowChart();
  void ShowGrid();
  void FollowLines(Axis axis, int first, int count, bool inserted);

  template <class Value>
  void Redraw(Value& part, Value value) {
    part = value;
    RefreshChart();
  }

  ChartState chartState_;
  QStackedWidget* pages_;
  Sheet* sheet_ = nullptr;  // like all below, none before `Attach`
  Ui* screen_ = nullptr;
  std::unique_ptr<SheetCommands> commands_;
  GridView* grid_ = nullptr;
  FindBar* findBar_ = nullptr;
  SelectionStatus* status_ = nullptr;
  EditMenu* menu_ = nullptr;
  SheetChart* chart_ = nullptr;  // made when it is asked for
};

}  // namespace lomaris

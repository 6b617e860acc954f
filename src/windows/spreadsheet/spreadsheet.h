#pragma once

#include <QStackedWidget>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

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
/// Before `Attach` only the properties may be used, which forms set and store. Those of its shape
/// are then the sheet's.
class Spreadsheet : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor)
  Q_PROPERTY(QColor ForeColor READ ForeColor WRITE SetForeColor)
  Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
  Q_PROPERTY(QFont Font READ font WRITE setFont)
  Q_PROPERTY(int BackStyle READ BackStyle WRITE SetBackStyle)
  Q_PROPERTY(int BorderStyle READ BorderStyle WRITE SetBorderStyle)
  Q_PROPERTY(int FixedCols READ FixedCols WRITE SetFixedCols)
  Q_PROPERTY(int FixedRows READ FixedRows WRITE SetFixedRows)
  Q_PROPERTY(int Cols READ Cols WRITE SetCols)
  Q_PROPERTY(int Rows READ Rows WRITE SetRows)
  Q_PROPERTY(int AllowUserResizing READ AllowUserResizing WRITE SetAllowUserResizing)
  Q_PROPERTY(QString FormatString READ FormatString WRITE SetFormatString)
  Q_PROPERTY(int ScrollBars READ ScrollBars WRITE SetScrollBars)
  Q_PROPERTY(QString ToolTipTextGrid READ toolTip WRITE setToolTip)
  Q_PROPERTY(int WhatsThisHelpID READ WhatsThisHelpID WRITE SetWhatsThisHelpID)
  Q_PROPERTY(bool NumberRows READ NumberRows WRITE SetNumberRows)
  Q_PROPERTY(bool WordWrap READ WordWrap WRITE SetWordWrap STORED false)
  Q_PROPERTY(int ChartType READ ChartTypeNumber WRITE SetChartType)
  Q_PROPERTY(int XLabels READ XLabels WRITE SetXLabels STORED false)
  Q_PROPERTY(bool ReverseX READ ReverseX WRITE SetReverseX)
  Q_PROPERTY(bool ReverseY READ ReverseY WRITE SetReverseY)
  Q_PROPERTY(bool ReverseY2 READ ReverseY2 WRITE SetReverseY2)

 public:
  explicit Spreadsheet(QWidget* parent = nullptr);

  /// Once. All four outlive this. Takes the sheet's `Events.Refresh` and `Events.LinesMoved`; its
  /// other events stay the owner's.
  void Attach(Sheet& sheet, Ui& screen, Settings& settings, CopiedDates& copied);

  /// Makes a column as wide as a sample text.
  QString ColWidthText(int col) const { return grid_->ColWidthText(col); }
  void SetColWidthText(int col, const QString& sample) { grid_->SetColWidth(col, {sample}); }
  /// The longest line of a head, for such a sample.
  static QString WidestLine(const std::string& heading);

  /// In pixels. The first fixed column and row are heads, which have one width and height each.
  int ColWidth(int col) const { return grid_->ColWidth(col); }
  void SetColWidth(int col, int width) { grid_->SetColWidth(col, {.Pixels = std::max(0, width)}); }
  int RowHeight(int row) const { return grid_->RowHeight(row); }
  void SetRowHeight(int row, int height) { grid_->SetRowHeight(row, std::max(0, height)); }

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

  QColor BackColor() const { return palette().color(QPalette::Base); }
  void SetBackColor(const QColor& colour) { SetColour(QPalette::Base, colour); }
  QColor ForeColor() const { return palette().color(QPalette::Text); }
  void SetForeColor(const QColor& colour) { SetColour(QPalette::Text, colour); }

  /// The numbers are those of `GridLook`.
  int BackStyle() const { return look_.BackStyle; }
  void SetBackStyle(int style) { SetLook(look_.BackStyle, style); }
  int BorderStyle() const { return look_.BorderStyle; }
  void SetBorderStyle(int style) { SetLook(look_.BorderStyle, style); }
  int AllowUserResizing() const { return look_.AllowUserResizing; }
  void SetAllowUserResizing(int lines) { SetLook(look_.AllowUserResizing, lines); }
  int ScrollBars() const { return look_.ScrollBars; }
  void SetScrollBars(int bars) { SetLook(look_.ScrollBars, bars); }
  bool WordWrap() const { return look_.WordWrap; }
  void SetWordWrap(bool wrap) { SetLook(look_.WordWrap, wrap); }

  int Rows() const { return shape_.Rows.value_or(Shown().Rows()); }
  void SetRows(int rows) { SetShape(shape_.Rows, rows); }
  int Cols() const { return shape_.Cols.value_or(Shown().Cols()); }
  void SetCols(int cols) { SetShape(shape_.Cols, cols); }
  int FixedRows() const { return shape_.FixedRows.value_or(Shown().FixedRows()); }
  void SetFixedRows(int rows) { SetShape(shape_.FixedRows, rows); }
  int FixedCols() const { return shape_.FixedCols.value_or(Shown().FixedCols()); }
  void SetFixedCols(int cols) { SetShape(shape_.FixedCols, cols); }
  bool NumberRows() const { return shape_.NumberRows.value_or(Shown().NumberRows()); }
  void SetNumberRows(bool number) { SetShape(shape_.NumberRows, number); }

  /// Heads, as `ReadFormatString` reads them; each makes its column as wide as itself.
  QString FormatString() const { return formatString_; }
  void SetFormatString(const QString& heads);

  /// The topic of the help that the "What's This?" mode opens; 0: it shows the text of the control.
  int WhatsThisHelpID() const { return whatsThisHelpID_; }
  void SetWhatsThisHelpID(int topic) { whatsThisHelpID_ = topic; }

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
  /// The selection of the sheet, in any way.
  void SelectionMoved();

  /// The cells shown have changed, by whomever; gathered, on the next turn of the event loop.
  void Refreshed();

 protected:
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  /// What a form says of the table's shape, until there is one.
  struct FormShape {
    std::optional<int> Rows, Cols, FixedRows, FixedCols;
    std::optional<bool> NumberRows;
  };

  void SetColour(QPalette::ColorRole role, const QColor& colour);
  const Sheet& Shown() const;
  void TakeShape();
  void TakeFormatString();

  template <class Value>
  void SetLook(Value& part, Value value) {
    part = value;
    if (grid_ != nullptr) grid_->SetLook(look_);
  }

  template <class Value>
  void SetShape(std::optional<Value>& part, Value value) {
    part = value;
    if (sheet_ != nullptr) TakeShape();
  }

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
  GridLook look_;
  FormShape shape_;
  QString formatString_;
  int whatsThisHelpID_ = 0;
  QStackedWidget* pages_;
  Sheet* sheet_ = nullptr;  // like all below, none before `Attach`
  Ui* screen_ = nullptr;
  Settings* settings_ = nullptr;
  std::unique_ptr<SheetCommands> commands_;
  GridView* grid_ = nullptr;
  FindBar* findBar_ = nullptr;
  SelectionStatus* status_ = nullptr;
  EditMenu* menu_ = nullptr;
  SheetChart* chart_ = nullptr;  // made when it is asked for
};

}  // namespace lomaris

#pragma once

#include <QAbstractTableModel>
#include <QFont>
#include <QString>
#include <functional>

#include "spreadsheet/sheet.h"

namespace lomaris {

/// What is wrong with a cell; empty: nothing.
using CellMark = std::function<QString(int row, int col)>;

/// General counts as left.
Qt::Alignment ToQt(Alignment alignment);

/// How a cell is shown.
struct CellLook {
  QString Text = {};  ///< its beginning, of a long one
  QString Mark = {};
  Alignment Align = Alignment::Left;  ///< never General
  bool Bold = false;
  bool Head = false;
  bool ReadOnly = false;
};

/// A sheet as Qt's views read it: each cell when it is asked for, nothing is copied. The first
/// fixed row and column are the heads of the view; further ones are rows and columns that look like
/// heads and cannot be selected.
///
/// The sheet may change at any time, also while a box is open in the middle of a command. Until
/// `Update` the model keeps to the size it told of last; cells that are no longer there are empty.
class SheetModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// `sheet` outlives this.
  explicit SheetModel(const Sheet& sheet, QObject* parent = nullptr);

  /// Tells the views what the sheet now holds.
  void Update();

  void SetMark(CellMark mark) { mark_ = std::move(mark); }

  bool HasHeads(Qt::Orientation orientation) const;
  CellPlace PlaceOf(const QModelIndex& index) const;

  /// Invalid for a head and for a cell that has not been told of yet.
  QModelIndex IndexOf(CellPlace place) const;

  CellLook LookOf(CellPlace place) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  /// The size of the sheet, and of its heads in the view: 0 or 1.
  struct Shape {
    int Rows = 0;
    int Cols = 0;
    int HeadRows = 0;
    int HeadCols = 0;
  };

  Shape PresentShape() const;
  bool IsThere(CellPlace place) const;
  bool IsHead(CellPlace place) const;
  void UpdateRows(int rows);
  void UpdateCols(int cols);

  const Sheet& sheet_;
  CellMark mark_ = [](int, int) { return QString(); };
  Shape shown_;
};

}  // namespace lomaris

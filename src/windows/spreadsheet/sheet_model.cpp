#include "windows/spreadsheet/sheet_model.h"

#include <algorithm>

#include "spreadsheet/sheet_queries.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

/// No column is as wide as more characters. A text is cut before it is converted, since that is
/// done for each painting and a pasted text may have megabytes.
QString ShownText(const std::string& text) {
  constexpr int kMostShown = 500;
  constexpr std::size_t kMostBytes = 4;  // of a character
  return ToQt(std::string_view(text).substr(0, kMostShown * kMostBytes)).left(kMostShown);
}

Alignment GeneralAlignment(const std::string& text, bool head) {
  constexpr std::size_t kLongestNumber = 100;
  if (head) return Alignment::Center;
  return text.size() <= kLongestNumber && NumberOf(text) ? Alignment::Right : Alignment::Left;
}

/// The view's own, but bold.
QFont BoldFont() {
  QFont font;
  font.setBold(true);
  return font;
}

}  // namespace

Qt::Alignment ToQt(Alignment alignment) {
  switch (alignment) {
    case Alignment::Right:
      return Qt::AlignRight;
    case Alignment::Center:
      return Qt::AlignHCenter;
    default:
      return Qt::AlignLeft;
  }
}

SheetModel::SheetModel(const Sheet& sheet, QObject* parent)
    : QAbstractTableModel(parent), sheet_(sheet), shown_(PresentShape()) {}

SheetModel::Shape SheetModel::PresentShape() const {
  return {sheet_.Rows(), sheet_.Cols(), std::min(sheet_.FixedRows(), 1),
          std::min(sheet_.FixedCols(), 1)};
}

void SheetModel::Update() {
  const Shape now = PresentShape();
  if (now.HeadRows != shown_.HeadRows || now.HeadCols != shown_.HeadCols) {
    beginResetModel();
    shown_ = now;
    endResetModel();
    return;
  }
  UpdateRows(now.Rows);
  UpdateCols(now.Cols);
  if (rowCount() == 0 || columnCount() == 0) return;
  emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  emit headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

/// Lines come and go at the end, wherever they did: what they hold is read anew anyway.
void SheetModel::UpdateRows(int rows) {
  const int before = rowCount();
  const int now = rows - shown_.HeadRows;
  if (now > before) {
    beginInsertRows({}, before, now - 1);
    shown_.Rows = rows;
    endInsertRows();
  } else if (now < before) {
    beginRemoveRows({}, now, before - 1);
    shown_.Rows = rows;
    endRemoveRows();
  }
}

void SheetModel::UpdateCols(int cols) {
  const int before = columnCount();
  const int now = cols - shown_.HeadCols;
  if (now > before) {
    beginInsertColumns({}, before, now - 1);
    shown_.Cols = cols;
    endInsertColumns();
  } else if (now < before) {
    beginRemoveColumns({}, now, before - 1);
    shown_.Cols = cols;
    endRemoveColumns();
  }
}

bool SheetModel::HasHeads(Qt::Orientation orientation) const {
  return (orientation == Qt::Horizontal ? shown_.HeadRows : shown_.HeadCols) > 0;
}

CellPlace SheetModel::PlaceOf(const QModelIndex& index) const {
  return {index.row() + shown_.HeadRows, index.column() + shown_.HeadCols};
}

QModelIndex SheetModel::IndexOf(CellPlace place) const {
  return index(place.Row - shown_.HeadRows, place.Col - shown_.HeadCols);
}

bool SheetModel::IsThere(CellPlace place) const {
  return place.Row >= 0 && place.Col >= 0 && place.Row < sheet_.Rows() && place.Col < sheet_.Cols();
}

bool SheetModel::IsHead(CellPlace place) const {
  return place.Row < sheet_.FixedRows() || place.Col < sheet_.FixedCols();
}

CellLook SheetModel::LookOf(CellPlace place) const {
  if (!IsThere(place)) return {};
  const std::string& text = sheet_.TextMatrix(place.Row, place.Col);
  CellLook look{.Text = ShownText(text),
                .Align = sheet_.CellAlignment(place.Row, place.Col),
                .Bold = sheet_.CellFontBold(place.Row, place.Col),
                .Head = IsHead(place)};
  if (look.Align == Alignment::General) look.Align = GeneralAlignment(text, look.Head);
  if (look.Head) return look;
  look.Mark = mark_(place.Row, place.Col);
  look.ReadOnly = sheet_.IsReadOnly(place.Row, place.Col);
  return look;
}

int SheetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shown_.Rows - shown_.HeadRows;
}

int SheetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shown_.Cols - shown_.HeadCols;
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
  const CellPlace place = PlaceOf(index);
  if (!index.isValid() || !IsThere(place)) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(sheet_.TextMatrix(place.Row, place.Col));
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
      return LookOf(place).Mark;
    default:
      return {};
  }
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool across = orientation == Qt::Horizontal;
  const CellPlace place =
      across ? CellPlace{0, section + shown_.HeadCols} : CellPlace{section + shown_.HeadRows, 0};
  if (!HasHeads(orientation) || !IsThere(place)) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(sheet_.TextMatrix(place.Row, place.Col));
    case Qt::TextAlignmentRole:
      return QVariant(ToQt(LookOf(place).Align) | Qt::AlignVCenter);
    case Qt::FontRole:
      return sheet_.CellFontBold(place.Row, place.Col) ? BoldFont() : QVariant();
    default:
      return {};
  }
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const {
  const CellPlace place = PlaceOf(index);
  if (!index.isValid() || !IsThere(place) || IsHead(place)) return Qt::NoItemFlags;
  const Qt::ItemFlags cell = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  return sheet_.CanEdit(place.Row, place.Col) ? cell | Qt::ItemIsEditable : cell;
}

}  // namespace lomaris

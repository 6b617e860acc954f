#include "windows/run/results_table.h"

#include "run/monitor_view.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

QStringList ToQtList(const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& text : texts) list << ToQt(text);
  return list;
}

}  // namespace

void ResultsTable::SetUp(const std::vector<std::string>& titles,
                         const std::vector<std::string>& rowLabels) {
  beginResetModel();
  titles_ = ToQtList(titles);
  labels_ = ToQtList(rowLabels);
  columns_.assign(titles.empty() ? 0 : titles.size() - 1, {});
  endResetModel();
}

void ResultsTable::SetColumn(int column, std::span<const float> values) {
  columns_.at(static_cast<std::size_t>(column - 1)).assign(values.begin(), values.end());
}

void ResultsTable::Announce() {
  if (labels_.isEmpty() || columns_.empty()) return;
  emit dataChanged(index(0, 1), index(rowCount() - 1, columnCount() - 1), {Qt::DisplayRole});
}

void ResultsTable::Blank() {
  for (std::vector<float>& column : columns_) column.clear();
  Announce();
}

std::span<const float> ResultsTable::Column(int column) const {
  const auto place = static_cast<std::size_t>(column - 1);
  return place < columns_.size() ? std::span<const float>(columns_[place])
                                 : std::span<const float>();
}

int ResultsTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(labels_.size());
}

int ResultsTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(titles_.size());
}

QString ResultsTable::TextAt(const QModelIndex& index) const {
  if (index.column() == 0) return labels_.at(index.row());
  const std::span<const float> values = Column(index.column());
  const auto row = static_cast<std::size_t>(index.row());
  return row < values.size() ? ToQt(ResultText(values[row])) : QString();
}

QVariant ResultsTable::data(const QModelIndex& index, int role) const {
  if (role == Qt::DisplayRole) return TextAt(index);
  if (role != Qt::TextAlignmentRole) return {};
  return QVariant::fromValue(Qt::AlignVCenter |
                             (index.column() == 0 ? Qt::AlignLeft : Qt::AlignRight));
}

QVariant ResultsTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return titles_.value(section);
}

}  // namespace lomaris

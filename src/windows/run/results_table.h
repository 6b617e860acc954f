#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <span>
#include <string>
#include <vector>

namespace lomaris {

/// The intermediate results as a table: the names of the rows, then the columns of the model. It
/// keeps numbers; only what is on view becomes text.
class ResultsTable : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// `titles` has one more for the row names, in front. There are no values yet.
  void SetUp(const std::vector<std::string>& titles, const std::vector<std::string>& rowLabels);

  /// Takes the values of a column, counted from 1. They are shown on `Announce`.
  void SetColumn(int column, std::span<const float> values);
  void Announce();

  /// Takes all values off the view.
  void Blank();

  /// The values of a column, counted from 1; none while it has not been filled.
  std::span<const float> Column(int column) const;

  const QStringList& RowLabels() const { return labels_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString TextAt(const QModelIndex& index) const;

  QStringList titles_;
  QStringList labels_;
  std::vector<std::vector<float>> columns_;
};

}  // namespace lomaris

#pragma once

#include <QDialog>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Ui {
class frmSelect;
}

namespace lomaris {

/// A list to pick one row from. Rows are split into columns at their tabs.
class frmSelect : public QDialog {
  Q_OBJECT

 public:
  frmSelect(const QString& caption, const std::vector<std::string>& rows,
            QWidget* parent = nullptr);
  ~frmSelect() override;

  /// Place of the picked row, counted from 0; nothing when none is.
  std::optional<std::size_t> PickedRow() const;

 private:
  void ShowRows(const std::vector<std::string>& rows);

  std::unique_ptr<::Ui::frmSelect> ui_;
};

}  // namespace lomaris

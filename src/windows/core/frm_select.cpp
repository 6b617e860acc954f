#include "windows/core/frm_select.h"

#include <QHeaderView>
#include <QPushButton>
#include <algorithm>

#include "ui_frm_select.h"
#include "windows/core/qt_text.h"
#include "windows/core/whats_this.h"

namespace lomaris {
namespace {

constexpr int kWidestColumn = 600;  // pixels

}  // namespace

frmSelect::frmSelect(const QString& caption, const std::vector<std::string>& rows, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<::Ui::frmSelect>()) {
  ui_->setupUi(this);
  setWindowTitle(caption);
  ApplyWhatsThis(*this);
  ShowRows(rows);
  ui_->btnOK->setEnabled(!rows.empty());
  connect(ui_->btnOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->btnCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(ui_->lstItems, &QTreeWidget::itemDoubleClicked, this, &QDialog::accept);
}

frmSelect::~frmSelect() = default;

std::optional<std::size_t> frmSelect::PickedRow() const {
  const int row = ui_->lstItems->indexOfTopLevelItem(ui_->lstItems->currentItem());
  return row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
}

void frmSelect::ShowRows(const std::vector<std::string>& rows) {
  QList<QTreeWidgetItem*> items;
  qsizetype columns = 1;
  for (const std::string& row : rows) {
    const QStringList fields = ToQt(row).split('\t');
    columns = std::max(columns, fields.size());
    items << new QTreeWidgetItem(fields);
  }
  ui_->lstItems->setColumnCount(static_cast<int>(columns));
  ui_->lstItems->header()->setMaximumSectionSize(kWidestColumn);
  ui_->lstItems->addTopLevelItems(items);
  if (!items.isEmpty()) ui_->lstItems->setCurrentItem(items.first());
  for (int column = 0; column < ui_->lstItems->columnCount(); ++column) {
    ui_->lstItems->resizeColumnToContents(column);
  }
}

}  // namespace lomaris

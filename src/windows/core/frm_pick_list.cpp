#include "windows/core/frm_pick_list.h"

#include <QHeaderView>
#include <QPushButton>
#include <algorithm>

#include "ui_frm_pick_list.h"
#include "windows/core/qt_text.h"
#include "windows/core/whats_this.h"

namespace lomaris {
namespace {

constexpr int kWidestColumn = 600;  // pixels

}  // namespace

frmPickList::frmPickList(const QString& caption, const std::vector<std::string>& rows,
                         QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<::Ui::frmPickList>()) {
  ui_->setupUi(this);
  setWindowTitle(caption);
  ApplyWhatsThis(*this);
  ShowRows(rows);
  ui_->buttons->button(QDialogButtonBox::Ok)->setEnabled(!rows.empty());
  connect(ui_->buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(ui_->buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(ui_->lstRows, &QTreeWidget::itemDoubleClicked, this, &QDialog::accept);
}

frmPickList::~frmPickList() = default;

std::optional<std::size_t> frmPickList::PickedRow() const {
  const int row = ui_->lstRows->indexOfTopLevelItem(ui_->lstRows->currentItem());
  return row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
}

void frmPickList::ShowRows(const std::vector<std::string>& rows) {
  QList<QTreeWidgetItem*> items;
  qsizetype columns = 1;
  for (const std::string& row : rows) {
    const QStringList fields = ToQt(row).split('\t');
    columns = std::max(columns, fields.size());
    items << new QTreeWidgetItem(fields);
  }
  ui_->lstRows->setColumnCount(static_cast<int>(columns));
  ui_->lstRows->header()->setMaximumSectionSize(kWidestColumn);
  ui_->lstRows->addTopLevelItems(items);
  if (!items.isEmpty()) ui_->lstRows->setCurrentItem(items.first());
  for (int column = 0; column < ui_->lstRows->columnCount(); ++column) {
    ui_->lstRows->resizeColumnToContents(column);
  }
}

}  // namespace lomaris

#include "windows/editors/frm_add_xsect.h"

#include <QEvent>
#include <QPushButton>
#include <QTimer>

#include "windows/core/qt_text.h"
#include "windows/core/whats_this.h"
#include "windows/editors/ui_frm_add_xsect.h"

namespace lomaris {

frmAddXSect::frmAddXSect(const QString& caption, const SectionName& proposal, lomaris::Ui& screen,
                         QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<::Ui::frmAddXSect>()), screen_(screen) {
  ui_->setupUi(this);
  setWindowTitle(caption);
  ui_->txtName->setText(ToQt(proposal.Name));
  ui_->txtDescription->setText(ToQt(proposal.Description));
  ui_->txtName->setFocus();
  ui_->txtName->selectAll();
  ui_->txtName->installEventFilter(this);
  connect(ui_->btnOK, &QPushButton::clicked, this, [this] {
    if (NameFits()) accept();
  });
  connect(ui_->btnCancel, &QPushButton::clicked, this, &QDialog::reject);
  ApplyWhatsThis(*this);
}

frmAddXSect::~frmAddXSect() = default;

SectionName frmAddXSect::Entered() const {
  return {FromQt(ui_->txtName->text()), FromQt(ui_->txtDescription->text())};
}

/// The check waits until the click or the key that has moved the focus is through.
bool frmAddXSect::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ui_->txtName && event->type() == QEvent::FocusOut) {
    QTimer::singleShot(0, this, &frmAddXSect::CheckLeftName);
  }
  return QDialog::eventFilter(watched, event);
}

void frmAddXSect::CheckLeftName() {
  const bool elsewhere = ui_->txtDescription->hasFocus() || ui_->btnOK->hasFocus();
  if (isVisible() && elsewhere) NameFits();
}

bool frmAddXSect::NameFits() {
  if (SectionNameFits(FromQt(ui_->txtName->text()), screen_)) return true;
  ui_->txtName->setFocus();
  ui_->txtName->selectAll();
  return false;
}

}  // namespace lomaris

#include "windows/run/frm_options_h.h"

#include <QPushButton>

#include "windows/core/whats_this.h"
#include "windows/run/option_controls.h"
#include "windows/run/ui_frm_options_h.h"

namespace lomaris {

frmOptionsH::frmOptionsH(RunDesk& desk, lomaris::Ui& screen, QWidget* parent)
    : QDialog(parent), desk_(desk), screen_(screen), ui_(std::make_unique<::Ui::frmOptionsH>()) {
  ui_->setupUi(this);
  connect(ui_->chkHydroLink, &QCheckBox::toggled, ui_->frameLinkageType, &QWidget::setEnabled);
  connect(ui_->optWasp, &QRadioButton::clicked, this, &frmOptionsH::AskStep);
  connect(ui_->btnRun, &QPushButton::clicked, this, [this] { desk_.RunHydro(Options()); });
  connect(ui_->btnCancel, &QPushButton::clicked, this, &QDialog::reject);
  ApplyWhatsThis(*this);
}

frmOptionsH::~frmOptionsH() = default;

void frmOptionsH::AskStep() {
  AskWaspStep(waspStep_, screen_);
  ui_->lblWaspStep->setText(QString("One time step in %1").arg(waspStep_));
}

HydroRunOptions frmOptionsH::Options() const {
  return {.HydroLink = ui_->chkHydroLink->isChecked(),
          .WaspLinkage = ui_->optWasp->isChecked(),
          .WaspStep = waspStep_,
          .InitialLevels = ui_->chkInitCond->isChecked(),
          .Files = ChosenFiles(*ui_)};
}

}  // namespace lomaris

#include "windows/run/frm_options.h"

#include <QPushButton>

#include "windows/core/whats_this.h"
#include "windows/run/option_controls.h"
#include "windows/run/ui_frm_options.h"

namespace lomaris {

frmOptions::frmOptions(RunDesk& desk, OptionsWindow window, QWidget* parent)
    : QDialog(parent), desk_(desk), ui_(std::make_unique<::Ui::frmOptions>()) {
  ui_->setupUi(this);
  const bool alone = window == OptionsWindow::Qual;
  if (alone) BecomeQual();
  ui_->chkHydroLink->setVisible(alone);
  ui_->chkInitCond->setVisible(!alone);
  connect(ui_->btnRun, &QPushButton::clicked, this,
          alone ? &frmOptions::RunQual : &frmOptions::RunBoth);
  connect(ui_->btnCancel, &QPushButton::clicked, this, &QDialog::reject);
  ApplyWhatsThis(*this);
}

frmOptions::~frmOptions() = default;

void frmOptions::BecomeQual() {
  setObjectName("frmOptionsQ");
  setWindowTitle("TavreskQ Options");
  ui_->btnRun->setText("&Run VeskQ");
  ui_->btnRun->setToolTip("Run the water quality model with these options");
}

void frmOptions::RunQual() {
  desk_.RunQual({.HydroLink = ui_->chkHydroLink->isChecked(),
                 .Solution = Solution(),
                 .DewPoint = ui_->optDew->isChecked(),
                 .Files = ChosenFiles(*ui_)});
}

void frmOptions::RunBoth() {
  desk_.RunBoth({.InitialLevels = ui_->chkInitCond->isChecked(),
                 .Solution = Solution(),
                 .DewPoint = ui_->optDew->isChecked(),
                 .Files = ChosenFiles(*ui_)});
}

Transport frmOptions::Solution() const {
  if (ui_->optUpwind->isChecked()) return Transport::Upwind;
  return ui_->optQuickest->isChecked() ? Transport::Quickest : Transport::Holly;
}

}  // namespace lomaris

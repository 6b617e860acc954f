#include "windows/run/frm_options_q.h"

#include <QPushButton>

#include "windows/core/whats_this.h"
#include "windows/run/option_controls.h"
#include "windows/run/ui_frm_options_q.h"

namespace lomaris {

frmOptionsQ::frmOptionsQ(RunDesk& desk, QWidget* parent)
    : QDialog(parent), desk_(desk), ui_(std::make_unique<::Ui::frmOptionsQ>()) {
  ui_->setupUi(this);
  connect(ui_->btnRun, &QPushButton::clicked, this, [this] { desk_.RunQual(Options()); });
  connect(ui_->btnCancel, &QPushButton::clicked, this, &QDialog::reject);
  ApplyWhatsThis(*this);
}

frmOptionsQ::~frmOptionsQ() = default;

QualRunOptions frmOptionsQ::Options() const {
  return {.HydroLink = ui_->chkHydroLink->isChecked(),
          .Solution = ChosenSolution(*ui_),
          .DewPoint = ui_->optDew->isChecked(),
          .Files = ChosenFiles(*ui_)};
}

}  // namespace lomaris

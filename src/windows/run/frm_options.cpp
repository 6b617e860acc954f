#include "windows/run/frm_options.h"

#include <QPushButton>

#include "windows/core/whats_this.h"
#include "windows/run/option_controls.h"
#include "windows/run/ui_frm_options.h"

namespace lomaris {

frmOptions::frmOptions(RunDesk& desk, QWidget* parent)
    : QDialog(parent), desk_(desk), ui_(std::make_unique<::Ui::frmOptions>()) {
  ui_->setupUi(this);
  connect(ui_->btnRun, &QPushButton::clicked, this, [this] { desk_.RunBoth(Options()); });
  connect(ui_->btnCancel, &QPushButton::clicked, this, &QDialog::reject);
  ApplyWhatsThis(*this);
}

frmOptions::~frmOptions() = default;

BothRunOptions frmOptions::Options() const {
  return {.InitialLevels = ui_->chkInitCond->isChecked(),
          .Solution = ChosenSolution(*ui_),
          .DewPoint = ui_->optDew->isChecked(),
          .Files = ChosenFiles(*ui_)};
}

}  // namespace lomaris

#pragma once

#include <QDialog>
#include <memory>

#include "run/run_desk.h"

namespace Ui {
class frmOptionsH;
}

namespace lomaris {

/// Options of a run of the hydrodynamic model. Its button runs it.
class frmOptionsH : public QDialog {
  Q_OBJECT

 public:
  /// `desk` outlives the window.
  frmOptionsH(RunDesk& desk, lomaris::Ui& screen, QWidget* parent = nullptr);
  ~frmOptionsH() override;

 private:
  HydroRunOptions Options() const;
  void AskStep();

  RunDesk& desk_;
  lomaris::Ui& screen_;
  int waspStep_ = HydroRunOptions().WaspStep;
  std::unique_ptr<::Ui::frmOptionsH> ui_;
};

}  // namespace lomaris

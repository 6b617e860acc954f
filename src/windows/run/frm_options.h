#pragma once

#include <QDialog>
#include <memory>

#include "run/run_desk.h"

namespace Ui {
class frmOptions;
}

namespace lomaris {

/// Options of a run of the water quality model: behind the hydrodynamic one, `frmOptions`, or
/// alone, `frmOptionsQ`. The two differ in their first box. The button runs what was chosen.
class frmOptions : public QDialog {
  Q_OBJECT

 public:
  /// `desk` outlives the window.
  frmOptions(RunDesk& desk, OptionsWindow window, QWidget* parent = nullptr);
  ~frmOptions() override;

 private:
  void BecomeQual();
  void RunQual();
  void RunBoth();
  Transport Solution() const;

  RunDesk& desk_;
  std::unique_ptr<::Ui::frmOptions> ui_;
};

}  // namespace lomaris

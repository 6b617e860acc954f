#pragma once

#include <QDialog>
#include <memory>

#include "run/run_desk.h"

namespace Ui {
class frmOptions;
}

namespace lomaris {

/// Options of a run of both models in turn. Its button runs them.
class frmOptions : public QDialog {
  Q_OBJECT

 public:
  /// `desk` outlives the window.
  explicit frmOptions(RunDesk& desk, QWidget* parent = nullptr);
  ~frmOptions() override;

 private:
  BothRunOptions Options() const;

  RunDesk& desk_;
  std::unique_ptr<::Ui::frmOptions> ui_;
};

}  // namespace lomaris

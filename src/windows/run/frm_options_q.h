#pragma once

#include <QDialog>
#include <memory>

#include "run/run_desk.h"

namespace Ui {
class frmOptionsQ;
}

namespace lomaris {

/// Options of a run of the water quality model. Its button runs it.
class frmOptionsQ : public QDialog {
  Q_OBJECT

 public:
  /// `desk` outlives the window.
  explicit frmOptionsQ(RunDesk& desk, QWidget* parent = nullptr);
  ~frmOptionsQ() override;

 private:
  QualRunOptions Options() const;

  RunDesk& desk_;
  std::unique_ptr<::Ui::frmOptionsQ> ui_;
};

}  // namespace lomaris

#pragma once

#include <QDialog>
#include <memory>

#include "core/ports/ui.h"
#include "editors/library_desk.h"

namespace Ui {
class frmAddXSect;
}

namespace lomaris {

/// The dialog for the name and the description of a cross section. A name that cannot be keeps the
/// focus in its field; Cancel and closing the dialog ask nothing.
class frmAddXSect : public QDialog {
  Q_OBJECT

 public:
  frmAddXSect(const QString& caption, const SectionName& proposal, lomaris::Ui& screen,
              QWidget* parent = nullptr);
  ~frmAddXSect() override;

  SectionName Entered() const;

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void CheckLeftName();
  bool NameFits();

  std::unique_ptr<::Ui::frmAddXSect> ui_;
  lomaris::Ui& screen_;
};

}  // namespace lomaris

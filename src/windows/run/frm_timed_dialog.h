#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <memory>

namespace Ui {
class frmTimedDialog;
}

namespace lomaris {

/// A box that closes by itself, after telling for how long it will stay.
class frmTimedDialog : public QDialog {
  Q_OBJECT

 public:
  frmTimedDialog(const QString& title, const QString& text, int seconds, QWidget* parent = nullptr);
  ~frmTimedDialog() override;

 private:
  void Tick();

  std::unique_ptr<::Ui::frmTimedDialog> ui_;
  int seconds_;
  QElapsedTimer shown_;
};

}  // namespace lomaris

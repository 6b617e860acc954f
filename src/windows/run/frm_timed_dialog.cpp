#include "windows/run/frm_timed_dialog.h"

#include <QPushButton>
#include <QTimer>
#include <cmath>

#include "windows/core/whats_this.h"
#include "windows/run/ui_frm_timed_dialog.h"

namespace lomaris {
namespace {

constexpr int kTick = 1000;  // ms

}  // namespace

frmTimedDialog::frmTimedDialog(const QString& title, const QString& text, int seconds,
                               QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<::Ui::frmTimedDialog>()), seconds_(seconds) {
  ui_->setupUi(this);
  setWindowTitle(title);
  ui_->lblMessage->setText(text);
  ApplyWhatsThis(*this);
  connect(ui_->btnClose, &QPushButton::clicked, this, &QDialog::accept);
  auto* timer = new QTimer(this);
  timer->setObjectName("Timer1");
  connect(timer, &QTimer::timeout, this, &frmTimedDialog::Tick);
  shown_.start();
  Tick();
  timer->start(kTick);
}

frmTimedDialog::~frmTimedDialog() = default;

void frmTimedDialog::Tick() {
  const auto left = std::lround(seconds_ - static_cast<double>(shown_.elapsed()) / 1000);
  ui_->lblTimeLeft->setText(
      QString("This dialog will automatically close in %1 seconds...").arg(left));
  if (left < 1) accept();
}

}  // namespace lomaris

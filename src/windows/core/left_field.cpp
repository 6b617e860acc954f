#include "windows/core/left_field.h"

#include <QFocusEvent>
#include <QTimer>
#include <utility>

namespace lomaris {
namespace {

class LeavingFilter : public QObject {
 public:
  LeavingFilter(QWidget& field, std::function<void()> work)
      : QObject(&field), work_(std::move(work)) {
    field.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FocusOut) {
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason != Qt::MenuBarFocusReason && reason != Qt::PopupFocusReason &&
          reason != Qt::ActiveWindowFocusReason) {
        QTimer::singleShot(0, this, &LeavingFilter::Run);
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void Run() const {
    if (static_cast<QWidget*>(parent())->window()->isVisible()) work_();
  }

  std::function<void()> work_;
};

}  // namespace

void OnLeaving(QWidget& field, std::function<void()> work) {
  new LeavingFilter(field, std::move(work));
}

}  // namespace lomaris

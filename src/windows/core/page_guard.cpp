#include "windows/core/page_guard.h"

#include <QEvent>
#include <algorithm>
#include <utility>

namespace lomaris {
namespace {

class PageGuard : public QObject {
 public:
  PageGuard(QTabBar& bar, std::function<bool()> mayTurn)
      : QObject(&bar), mayTurn_(std::move(mayTurn)) {
    bar.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    constexpr QEvent::Type kTurning[] = {QEvent::MouseButtonPress, QEvent::KeyPress, QEvent::Wheel,
                                         QEvent::Shortcut};
    const bool turns = std::ranges::count(kTurning, event->type()) > 0;
    return (turns && !mayTurn_()) || QObject::eventFilter(watched, event);
  }

 private:
  std::function<bool()> mayTurn_;
};

}  // namespace

void GuardPages(QTabBar& bar, std::function<bool()> mayTurn) {
  new PageGuard(bar, std::move(mayTurn));
}

}  // namespace lomaris

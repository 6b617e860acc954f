#include "windows/core/menu_status.h"

#include <QEvent>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <utility>

#include "windows/core/qt_text.h"
#include "workspace/status_texts.h"

namespace lomaris {
namespace {

/// Captions of the menu tree down to `entry`, joined by "|"; empty when it is not below `entries`.
QString PathTo(const QAction* entry, const QList<QAction*>& entries) {
  for (const QAction* each : entries) {
    if (each == entry) return each->text();
    if (each->menu() == nullptr) continue;
    const QString below = PathTo(entry, each->menu()->actions());
    if (!below.isEmpty()) return each->text() + '|' + below;
  }
  return {};
}

/// Stands between a window's menus and its status bar. Just behind each highlighting, and when the
/// menus are left, Qt sends the window a status tip, which is empty: the text goes in its place.
class MenuStatus : public QObject {
 public:
  explicit MenuStatus(QMainWindow& window) : QObject(&window), window_(window) {
    connect(window.menuBar(), &QMenuBar::hovered, this, &MenuStatus::Highlighted);
    window.installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::StatusTip) return false;
    window_.statusBar()->showMessage(std::exchange(text_, {}));
    return true;
  }

 private:
  void Highlighted(QAction* entry) {
    const QString path = PathTo(entry, window_.menuBar()->actions()).remove('&');
    text_ = ToQt(StatusText(FromQt(path.section('\t', 0, 0))));
  }

  QMainWindow& window_;
  QString text_;  ///< of the entry that has just been highlighted
};

}  // namespace

void SubscribeMenuStatus(QMainWindow& window) {
  window.statusBar();      // makes one where there is none
  new MenuStatus(window);  // the window owns it
}

}  // namespace lomaris

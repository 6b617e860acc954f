#include "windows/core/menu_status.h"

#include <QEvent>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>

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

/// Stands between a window's menus and its status bar. Qt shows an entry's own status tip just
/// behind the highlighting, so the text is handed to the entry as that.
class MenuStatus : public QObject {
 public:
  explicit MenuStatus(QMainWindow& window) : QObject(&window), window_(window) {
    connect(window.menuBar(), &QMenuBar::hovered, this, &MenuStatus::Show);
  }

 private:
  void Show(QAction* entry) {
    QString path = PathTo(entry, window_.menuBar()->actions());
    path = path.remove('&').section('\t', 0, 0);
    entry->setStatusTip(ToQt(StatusText(FromQt(path))));
    // A tool bar's button shares the entry, and is to say nothing.
    QTimer::singleShot(0, entry, [entry] { entry->setStatusTip({}); });
  }

  QMainWindow& window_;
};

}  // namespace

void SubscribeMenuStatus(QMainWindow& window) {
  window.statusBar();      // makes one where there is none
  new MenuStatus(window);  // the window owns it
}

}  // namespace lomaris

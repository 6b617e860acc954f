#include "windows/core/help_window.h"

#include <QApplication>
#include <algorithm>

#include "windows/core/frm_help.h"

namespace lomaris {

void ShowHelpContents(int topic, Settings& settings) {
  // Belonging to the modal window of the moment, it can be used beside it.
  QWidget* parent = QApplication::activeModalWidget();
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto open = std::ranges::find_if(windows, [&](const QWidget* window) {
    return qobject_cast<const frmHelp*>(window) != nullptr && window->isVisible() &&
           window->parentWidget() == parent;
  });
  frmHelp* help =
      open != windows.end()
          ? qobject_cast<frmHelp*>(*open)
          : new frmHelp(QCoreApplication::applicationDirPath() + "/help", settings, parent);
  help->ShowTopic(topic);
  help->setWindowState(help->windowState() & ~Qt::WindowMinimized);
  help->show();
  help->raise();
  help->activateWindow();
}

}  // namespace lomaris

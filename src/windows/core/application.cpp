#include "windows/core/application.h"

#include <QWidget>

#include "core/error_report.h"
#include "core/program.h"
#include "windows/core/qt_text.h"
#include "windows/core/themed_icon.h"

namespace lomaris {

Application::Application(int& argc, char** argv, Ui& ui) : QApplication(argc, argv), ui_(ui) {
  setOrganizationName(ToQt(kApplicationTitle));
  setApplicationName(ToQt(kApplicationTitle));
  setApplicationVersion(ToQt(ProgramVersion()));
  setDesktopFileName("lomaris");
  setWindowIcon(ThemedIcon("lomaris"));
}

bool Application::notify(QObject* receiver, QEvent* event) {
  if constexpr (DebugMode) return QApplication::notify(receiver, event);
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception&) {
    // The event may have deleted its receiver, so it is not run again, whatever the answer.
    const QWidget* form = activeWindow();
    ReportError(ui_, CurrentRuntimeError(), "notify", "Form",
                form == nullptr ? std::string() : FromQt(form->objectName()));
    return true;
  }
}

}  // namespace lomaris

#include "windows/core/startup.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileInfo>

#include "core/error_report.h"
#include "core/program.h"
#include "windows/core/frm_splash.h"
#include "windows/core/qt_text.h"
#include "windows/core/whats_this.h"
#include "windows/core/window_placement.h"

namespace lomaris {
namespace {

constexpr std::string_view kHelpFile = "Lomaris.hlp";

void ShowSplash() {
  auto* splash = new frmSplash;  // deletes itself when its time is over
  SetTopMostWindow(*splash, true);
  splash->show();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);  // it is seen from now on
}

void FindHelpFile(const QString& programFolder, Ui& ui) {
  const QString file = programFolder + '/' + ToQt(kHelpFile);
  if (QFileInfo(file).isFile()) {
    SetHelpFile(file);
    return;
  }
  ui.ShowMessage({.Text = "Warning: cannot find Lomaris.hlp in the program directory; "
                          "context-sensitive help will not be available.",
                  .Title = "Error"});
}

}  // namespace

std::unique_ptr<QWidget> Main(Tables& tables, const ProjectWindowFactory& loadProjectWindow, Ui& ui,
                              const Settings& settings, const QString& programFolder) {
  std::unique_ptr<QWidget> window;
  Trap trap(ui, "Main");
  const auto run = [&](auto step) { return trap.Run(step) != StepEnd::Left; };
  const bool isLoaded = run(ShowSplash) && run([&] { tables = InitTables(ui); }) &&
                        run([&] { FindHelpFile(programFolder, ui); }) &&
                        run([&] { window = loadProjectWindow(); });
  if (!isLoaded || !window) return nullptr;
  if (DebugMode) window->setWindowTitle(ToQt(kApplicationTitle) + " - Debug Mode");
  const bool isPlaced = run([&] { PlaceWindow(*window, settings, "MainStartup"); });
  if (!isPlaced || !run([&] { window->show(); })) return nullptr;
  return window;
}

}  // namespace lomaris

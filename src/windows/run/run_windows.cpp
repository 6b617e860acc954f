#include "windows/run/run_windows.h"

#include <QShortcut>
#include <utility>

#include "windows/core/help_window.h"
#include "windows/core/qt_text.h"
#include "windows/core/window_placement.h"
#include "windows/run/frm_options.h"
#include "windows/run/frm_options_h.h"

namespace lomaris {
namespace {

constexpr int kHelpTopic = 15;

}  // namespace

RunWindows::RunWindows(const RunSurroundings& around, Settings& settings, QWidget& projectWindow,
                       ProjectActions actions)
    : screen_(around.Screen),
      settings_(settings),
      projectWindow_(projectWindow),
      actions_(std::move(actions)),
      desk_(around, *this) {}

void RunWindows::OfferHelp(QWidget& window) {
  auto* help = new QShortcut(QKeySequence::HelpContents, &window);
  QObject::connect(help, &QShortcut::activated, &window,
                   [this] { ShowHelpContents(kHelpTopic, settings_); });
}

// --- Options

std::unique_ptr<QDialog> RunWindows::MakeOptions(OptionsWindow window) {
  if (window == OptionsWindow::Hydro) {
    return std::make_unique<frmOptionsH>(desk_, screen_, &projectWindow_);
  }
  return std::make_unique<frmOptions>(desk_, window, &projectWindow_);
}

/// The window's own loop ends when the window is hidden, but only once the run that it has started
/// is through. A monitor that was never shown, or that was closed during the run, goes with it.
void RunWindows::ShowOptions(OptionsWindow window) {
  const std::unique_ptr<QDialog> options = MakeOptions(window);
  options_ = options.get();
  OfferHelp(*options);
  options->exec();
  if (monitor_ && !monitor_->isVisible()) UnloadMonitor();
}

void RunWindows::HideOptions() {
  if (options_) options_->hide();
}

void RunWindows::UnloadOptions() {
  if (options_) options_->close();
}

// --- Monitor

frmProgress* RunWindows::MakeMonitor() {
  auto* monitor = new frmProgress(screen_, settings_, &projectWindow_);
  QObject::connect(monitor, &frmProgress::ColumnChosen, monitor,
                   [this](int entry) { desk_.ChooseColumn(entry); });
  QObject::connect(monitor, &frmProgress::BoxOpens, monitor, [this] { HideSplash(); });
  OfferHelp(*monitor);
  return monitor;
}

/// One that has been closed is about to go.
MonitorView& RunWindows::LoadMonitor(const std::string& caption) {
  if (!monitor_ || !monitor_->isVisible()) monitor_ = MakeMonitor();
  monitor_->Restart(caption);
  return *monitor_;
}

void RunWindows::UnloadMonitor() {
  if (!monitor_) return;
  monitor_->close();
  monitor_->deleteLater();
  monitor_.clear();
}

void RunWindows::ShowMonitor() {
  if (monitor_) monitor_->ShowWindow();
}

void RunWindows::OfferClose() {
  if (monitor_) monitor_->OfferClose();
}

// --- Picture

void RunWindows::ShowSplash(const std::string& picture) {
  HideSplash();
  const QPixmap loaded(ToQt(picture));
  if (loaded.isNull()) return;  // no picture at all
  splash_ = new frmSplash(loaded);
  SetTopMostWindow(*splash_, true);
  splash_->show();
}

void RunWindows::HideSplash() {
  if (splash_) splash_->close();
}

}  // namespace lomaris

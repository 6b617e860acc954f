#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>

#include "run/run_desk.h"
#include "windows/core/frm_splash.h"
#include "windows/core/run_menu.h"
#include "windows/run/frm_progress.h"

namespace lomaris {

/// What a run asks of the project window.
struct ProjectActions {
  std::function<bool()> Save;      ///< false: not saved; the user has been told, or has cancelled
  std::function<void()> SaveForm;  ///< what the window shows goes into the project
};

/// The Run menu and the windows behind it: options, monitor, picture.
class RunWindows : public RunMenu, private RunView {
 public:
  /// The project window owns the monitor. All of these outlive this, but for the project window,
  /// after which no item may be chosen any more.
  RunWindows(const RunSurroundings& around, Settings& settings, QWidget& projectWindow,
             ProjectActions actions);
  ~RunWindows() override = default;

  void RunItem(int index) override { desk_.RunItem(index); }
  bool MayLeaveProject() override { return desk_.NoneRuns(); }

 private:
  bool SaveProject() override { return actions_.Save(); }
  void SaveForm() override { actions_.SaveForm(); }
  void ShowOptions(OptionsWindow window) override;
  void HideOptions() override;
  void UnloadOptions() override;
  MonitorView& LoadMonitor(const std::string& caption) override;
  void UnloadMonitor() override;
  void ShowMonitor() override;
  void OfferClose() override;
  void ShowSplash(const std::string& picture) override;

  std::unique_ptr<QDialog> MakeOptions(OptionsWindow window);
  frmProgress* MakeMonitor();
  void OfferHelp(QWidget& window);
  void HideSplash();

  lomaris::Ui& screen_;
  Settings& settings_;
  QWidget& projectWindow_;
  ProjectActions actions_;
  RunDesk desk_;
  QPointer<QDialog> options_;
  QPointer<frmProgress> monitor_;
  QPointer<frmSplash> splash_;
};

}  // namespace lomaris

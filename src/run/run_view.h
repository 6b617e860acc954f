#pragma once

#include <string>

#include "core/ports/clock.h"
#include "core/ports/processes.h"
#include "core/ports/settings.h"
#include "core/ports/ui.h"
#include "core/ports/workbench.h"
#include "model/project_data.h"
#include "run/monitor_view.h"
#include "run/programs.h"

namespace lomaris {

/// What a run works on and speaks through. All of it outlives the desk.
struct RunSurroundings {
  const ProjectData& Project;
  Ui& Screen;
  const Settings& Store;
  Processes& Programs;
  Clock& Time;
  Workbench& Windows;
  std::string ProgramFolder;  ///< where this program lies, and the model programs beside it
};

enum class OptionsWindow { Hydro = kRunHydro, Qual = kRunQual, Both = kRunBoth };

/// What the logic of a run asks of the project window and of the options windows.
class RunView {
 public:
  virtual ~RunView() = default;

  /// False: the project was not saved; the user has been told, or has cancelled.
  virtual bool SaveProject() = 0;
  /// Puts what the project window shows into the project.
  virtual void SaveForm() = 0;

  /// Shows an options window modally above the project window. Its button `btnRun` calls the desk;
  /// returns when the window is gone and no run is going on any more.
  virtual void ShowOptions(OptionsWindow window) = 0;
  virtual void HideOptions() = 0;
  virtual void UnloadOptions() = 0;

  /// The monitor, ready for a new run: with its saved settings, without messages and requests, its
  /// button reading "Cancel"; not shown yet when it was not. It stays until it is unloaded, or the
  /// user closes it after the run.
  virtual MonitorView& LoadMonitor(const std::string& caption) = 0;
  virtual void UnloadMonitor() = 0;
  /// Shows the monitor of the run, also one that the user has closed, or that no model has shown.
  virtual void ShowMonitor() = 0;
  /// The run is over: the monitor's button reads "Close".
  virtual void OfferClose() = 0;

  /// Shows a picture file above all windows, in its own size.
  virtual void ShowSplash(const std::string& picture) = 0;
};

}  // namespace lomaris

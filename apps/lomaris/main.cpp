#include <cstdlib>
#include <memory>

#include "core/steady_clock.h"
#include "core/tables.h"
#include "editors/surroundings.h"
#include "model/hydro_input.h"
#include "model/project_data.h"
#include "windows/core/application.h"
#include "windows/core/qt_processes.h"
#include "windows/core/qt_settings.h"
#include "windows/core/qt_shell.h"
#include "windows/core/qt_ui.h"
#include "windows/core/qt_workbench.h"
#include "windows/core/startup.h"
#include "windows/editors/frm_hydro.h"
#include "windows/editors/frm_qual.h"
#include "windows/editors/frm_xsect.h"
#include "windows/run/run_windows.h"
#include "windows/workspace/frm_project.h"

namespace {

/// The one owner of the records that the windows share.
struct SharedRecords {
  lomaris::ProjectData Project;
  lomaris::HydroInput Hydro;
  lomaris::QualInput Qual;
  lomaris::Tables Names;
  lomaris::EditorSession Session;
};

void AddEditors(lomaris::QtWorkbench& workbench, const lomaris::EditorSurroundings& around) {
  using lomaris::Instances;
  workbench.AddEditor("HNP", Instances::One, [around] { return new lomaris::frmHydro(around); });
  workbench.AddEditor("QNP", Instances::One, [around] { return new lomaris::frmQual(around); });
  workbench.AddEditor("XSG", Instances::Many, [around] { return new lomaris::frmXSect(around); });
}

std::unique_ptr<lomaris::RunWindows> MakeRunWindows(lomaris::frmProject& window,
                                                    const lomaris::RunSurroundings& around,
                                                    lomaris::Settings& settings) {
  return std::make_unique<lomaris::RunWindows>(
      around, settings, window,
      lomaris::ProjectActions{[&window] { return window.SaveProject(); },
                              [&window] { window.SaveForm(); }});
}

}  // namespace

int main(int, char** argv) {
  int nameAlone = 1;  // the command line is not read: files are opened from the project window
  lomaris::QtUi ui;
  lomaris::Application application(nameAlone, argv, ui);
  lomaris::QtSettings settings;
  lomaris::QtShell shell;
  SharedRecords records;
  lomaris::QtWorkbench workbench(records.Hydro, records.Project, ui, settings);
  const std::string folder = QCoreApplication::applicationDirPath().toStdString();
  AddEditors(workbench, {records.Project, records.Hydro, records.Qual, records.Names,
                         records.Session, ui, settings, workbench, folder});

  lomaris::QtProcesses processes;
  lomaris::SteadyClock clock;
  const lomaris::RunSurroundings around{records.Project, ui,        settings, processes,
                                        clock,           workbench, folder};
  std::unique_ptr<lomaris::RunWindows> runs;
  const auto loadProjectWindow = [&] {
    auto window = std::make_unique<lomaris::frmProject>(
        records.Project, records.Hydro, records.Names, ui, settings, shell, workbench);
    runs = MakeRunWindows(*window, around, settings);
    window->OfferRunMenu(*runs);
    return window;
  };
  const std::unique_ptr<QWidget> projectWindow = lomaris::Main(
      records.Names, loadProjectWindow, ui, settings, QCoreApplication::applicationDirPath());
  return projectWindow ? lomaris::Application::exec() : EXIT_FAILURE;
}

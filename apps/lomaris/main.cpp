#include <cstdlib>
#include <memory>

#include "core/tables.h"
#include "model/hydro_input.h"
#include "model/project_data.h"
#include "model/xsect_library.h"
#include "windows/core/application.h"
#include "windows/core/qt_settings.h"
#include "windows/core/qt_shell.h"
#include "windows/core/qt_ui.h"
#include "windows/core/qt_workbench.h"
#include "windows/core/startup.h"
#include "windows/workspace/frm_project.h"

namespace {

/// The one owner of the records that the windows share.
struct SharedRecords {
  lomaris::ProjectData Project;
  lomaris::HydroInput Hydro;
  lomaris::XSectLibrary Library;
  lomaris::Tables Names;
};

}  // namespace

int main(int, char** argv) {
  int nameAlone = 1;  // the command line is not read: files are opened from the project window
  lomaris::QtUi ui;
  lomaris::Application application(nameAlone, argv, ui);
  lomaris::QtSettings settings;
  lomaris::QtShell shell;
  SharedRecords records;
  lomaris::QtWorkbench workbench(records.Hydro, records.Project, ui, settings);

  const auto loadProjectWindow = [&] {
    return std::make_unique<lomaris::frmProject>(records.Project, records.Hydro, records.Names, ui,
                                                 settings, shell, workbench);
  };
  const std::unique_ptr<QWidget> projectWindow = lomaris::Main(
      records.Names, loadProjectWindow, ui, settings, QCoreApplication::applicationDirPath());
  return projectWindow ? lomaris::Application::exec() : EXIT_FAILURE;
}

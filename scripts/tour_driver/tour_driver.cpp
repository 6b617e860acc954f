// Leads the program's own windows through their main tasks and keeps a picture of each.
//
//   tour_driver <project file> <folder for the pictures>

#include <QMenu>
#include <QPalette>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <cstdio>

#include "album.h"
#include "core/files.h"
#include "core/steady_clock.h"
#include "run_pictures.h"
#include "windows/core/application.h"
#include "windows/core/frm_select.h"
#include "windows/core/frm_splash.h"
#include "windows/core/help_window.h"
#include "windows/core/qt_processes.h"
#include "windows/core/qt_settings.h"
#include "windows/core/qt_shell.h"
#include "windows/core/qt_ui.h"
#include "windows/core/qt_workbench.h"
#include "windows/core/whats_this.h"
#include "windows/editors/frm_hydro.h"
#include "windows/editors/frm_qual.h"
#include "windows/editors/frm_xsect.h"
#include "windows/run/run_windows.h"
#include "windows/spreadsheet/spreadsheet.h"
#include "windows/workspace/frm_project.h"

namespace {

using namespace lomaris;

constexpr QSize kWindowSize(1024, 700);

QPalette DarkPalette() {
  QPalette dark(QColor(0x2b, 0x2d, 0x30));
  dark.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
  dark.setColor(QPalette::Text, QColor(0xdf, 0xe1, 0xe5));
  dark.setColor(QPalette::WindowText, QColor(0xdf, 0xe1, 0xe5));
  dark.setColor(QPalette::ButtonText, QColor(0xdf, 0xe1, 0xe5));
  dark.setColor(QPalette::Highlight, QColor(0x2e, 0x6f, 0x9e));
  dark.setColor(QPalette::Link, QColor(0x6c, 0xb2, 0xe6));
  for (const QPalette::ColorRole role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x83, 0x88));
  }
  return dark;
}

QWidget* WindowNamed(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name) return window;
  }
  return nullptr;
}

QWidget* HelpWindow() {
  return WindowNamed("frmHelp");
}

void ShowTheProject(frmProject& window, Album& album) {
  auto* tabs = window.findChild<QTabWidget*>("SSTabMain");
  album.Keep(&window, "project");
  window.findChild<QToolButton*>("btnBrowseSelect4")->click();
  album.Keep(QApplication::activePopupWidget(), "project_slot_menu");
  QApplication::activePopupWidget()->close();
  tabs->setCurrentIndex(1);
  album.Keep(&window, "project_diagram");
  tabs->setCurrentIndex(0);
}

void ShowTheMenus(frmProject& window, Album& album) {
  for (const char* name : {"mnuFile", "mnuEdit", "mnuRun", "mnuHelp"}) {
    auto* menu = window.findChild<QMenu*>(name);
    menu->popup(window.mapToGlobal(QPoint()));
    album.Keep(menu, QString("menu_%1").arg(QString(name).mid(3).toLower()));
    menu->close();
  }
}

void ShowTheList(Album& album) {
  frmSelect list("Select Table in gauges.mdb",
                 {"DAILY\t03/14/2024", "HOURLY\t03/15/2024", "STATIONS\t11/02/2019"});
  list.show();
  album.Keep(&list, "select");
}

void TurnTo(QWidget& window, const char* tabs, int page) {
  window.findChild<QTabWidget*>(tabs)->setCurrentIndex(page);
}

/// The cross sections of the first branch, and the chart of their bed.
void ShowTheBranch(QWidget& window, Album& album) {
  TurnTo(window, "SSTabMainH", 2);
  auto* xsects = window.findChild<Spreadsheet*>("ssXSect");
  xsects->ShowCell(4, 3);
  album.Keep(&window, "hydro_branch");
  auto* view = xsects->findChild<QTableView*>();
  xsects->ShowCell(1, 8);
  view->setFocus();
  QTest::keyClick(view, Qt::Key_Space, Qt::ControlModifier);
  album.Keep(&window, "grid_column");
  xsects->findChild<QMenu*>("mnuEdit")->findChild<QAction*>("mnuEditItem13")->trigger();
  album.Keep(&window, "grid_chart");
}

QWidget* ShowTheNetwork(QtWorkbench& workbench, Album& album) {
  workbench.FileEdit({.FileName = "corvane_river.hnp"});
  QWidget* window = WindowNamed("frmHydro");
  window->resize(kWindowSize);
  album.Keep(window, "hydro_run");
  ShowTheBranch(*window, album);
  TurnTo(*window, "SSTabBranchH", 2);
  album.Keep(window, "hydro_downstream");
  TurnTo(*window, "SSTabBranchH", 0);
  return window;
}

/// Each page of the water quality editor.
void ShowTheQualityPages(QWidget& window, Album& album, const QString& suffix) {
  auto* tabs = window.findChild<QTabWidget*>("SSTabMainQ");
  for (int page = 0; page < tabs->count(); ++page) {
    tabs->setCurrentIndex(page);
    album.Keep(&window, "quality_" + tabs->widget(page)->objectName().mid(3).toLower() + suffix);
  }
}

QWidget* ShowTheQuality(QtWorkbench& workbench, Album& album) {
  workbench.FileEdit({.FileName = "corvane_quality.qnp"});
  QWidget* window = WindowNamed("frmQual");
  window->resize(kWindowSize);
  ShowTheQualityPages(*window, album, "");
  auto* byXSect = window->findChild<QCheckBox*>("chkXSectKinetics");
  byXSect->setChecked(true);
  TurnTo(*window, "SSTabMainQ", 4);
  album.Keep(window, "quality_xsect_turned");
  byXSect->setChecked(false);
  return window;
}

QWidget* ShowTheLibrary(QtWorkbench& workbench, Album& album) {
  workbench.FileEdit({.FileName = "corvane_shapes.xsg"});
  QWidget* window = WindowNamed("frmXSect");
  window->resize(kWindowSize);
  album.Keep(window, "library");
  return window;
}

void ShowInTheDark(QWidget& project, QWidget& network, QWidget& quality, QWidget& library,
                   Album& album) {
  QApplication::setPalette(DarkPalette());
  album.Keep(&project, "project_dark");
  album.Keep(HelpWindow(), "help_dark");
  album.Keep(&network, "grid_chart_dark");
  TurnTo(network, "SSTabMainH", 0);
  album.Keep(&network, "hydro_run_dark");
  ShowTheQualityPages(quality, album, "_dark");
  album.Keep(&library, "library_dark");
}

void Tour(lomaris::Ui& ui, const std::string& project, Album& album) {
  QtSettings settings;
  QtShell shell;
  ProjectData data;
  HydroInput hydro;
  QualInput qual;
  QtWorkbench workbench(hydro, data, ui, settings);
  const Tables tables = InitTables(ui);
  EditorSession session;
  const EditorSurroundings around{data, hydro, qual, tables, session, ui, settings, workbench};
  workbench.AddEditor("HNP", Instances::One, [around] { return new frmHydro(around); });
  workbench.AddEditor("QNP", Instances::One, [around] { return new frmQual(around); });
  workbench.AddEditor("XSG", Instances::Many, [around] { return new frmXSect(around); });

  auto* splash = new frmSplash;  // deletes itself when it is closed
  splash->show();
  album.Keep(splash, "splash");
  splash->close();

  SteadyClock clock;
  QtProcesses processes;
  std::unique_ptr<RunWindows> runs;
  frmProject window(data, hydro, tables, ui, settings, shell, workbench);
  runs = std::make_unique<RunWindows>(
      RunSurroundings{data, ui, settings, processes, clock, workbench, FolderOf(project)}, settings,
      window, ProjectActions{[] { return true; }, [] {}});
  window.OfferRunMenu(*runs);
  window.resize(kWindowSize);
  window.show();
  album.Keep(&window, "project_empty");
  window.OpenProject(project);
  ShowTheProject(window, album);
  ShowTheMenus(window, album);
  ShowTheList(album);
  ShowHelpContents(1, settings);
  album.Keep(HelpWindow(), "help");

  ShowTheRun(window, ui, settings, album, "");
  QWidget* network = ShowTheNetwork(workbench, album);
  QWidget* quality = ShowTheQuality(workbench, album);
  QWidget* library = ShowTheLibrary(workbench, album);
  ShowInTheDark(window, *network, *quality, *library, album);
  ShowTheRun(window, ui, settings, album, "_dark");
  HelpWindow()->close();
  workbench.CloseOtherWindows();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: tour_driver <project file> <folder for the pictures>\n");
    return EXIT_FAILURE;
  }
  QtUi ui;
  Application application(argc, argv, ui);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  SetHelpFile(QCoreApplication::applicationDirPath() + "/Lomaris.hlp");
  Album album(QString::fromLocal8Bit(argv[2]));
  Tour(ui, argv[1], album);
  return album.Missing() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

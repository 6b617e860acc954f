#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <memory>
#include <set>

#include "windows/core/qt_workbench.h"
#include "windows/core/run_menu.h"
#include "workspace/project_desk.h"

class QComboBox;
class QLineEdit;
class QToolButton;

namespace Ui {
class frmProject;
}

namespace lomaris {

/// The main window: the files of one project on one tab, its network on the other.
class frmProject : public QMainWindow, private ProjectView {
  Q_OBJECT

 public:
  frmProject(ProjectData& project, HydroInput& hydro, const Tables& tables, lomaris::Ui& screen,
             Settings& settings, Shell& desktop, QtWorkbench& workbench, QWidget* parent = nullptr);
  ~frmProject() override;

  /// Opens a project as File | Open does once its name is known.
  bool OpenProject(const std::string& fileName) { return desk_.OpenProject(fileName); }

  /// From now on the Run menu is offered. `runs` outlives the window.
  void OfferRunMenu(RunMenu& runs);

  // For a run, before it begins.
  bool SaveProject() { return desk_.SaveProject(false); }
  void SaveForm() { desk_.SaveForm(); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool MayLeaveProject() override;
  ProjectForm Form() const override;
  void ShowForm(const ProjectForm& form, bool projectOpen) override;
  void ShowFilesTab() override;
  void FocusSlot(std::size_t slot) override;
  std::string Caption() const override;
  void SetCaption(const std::string& caption) override;
  void ShowRecent(const std::vector<std::string>& names) override;

  /// Connects an action to what it does. An action that nothing is offered for stays disabled.
  void Offer(QAction* action, std::function<void()> handler);
  void OfferFileMenu();
  void OfferEditMenu();
  void OfferHelpMenu();
  void OfferFileList();
  void OfferLooks();
  void SetIcons();
  void ConnectSlots();
  void ConnectText(QLineEdit* text);
  void OpenOrList(const std::vector<std::string>& paths);

  void SetProjectMenus(bool enabled);
  void SetSlotActions();
  void EnableOffered(QAction* action, bool enabled);
  void EnableMenu(QAction* menuAction, bool enabled);
  void ShowOpenPopup(std::size_t slot);
  void SendKeystroke(int key);
  void ShowTab(int tab);
  void ShowAbout();

  QAction* ItemOf(const char* menu, std::size_t index) const;
  QLineEdit* TextOf(std::size_t slot) const;
  QComboBox* ListOf(std::size_t slot) const;
  QToolButton* EditButtonOf(std::size_t slot) const;
  QToolButton* SelectButtonOf(std::size_t slot) const;

  std::unique_ptr<::Ui::frmProject> ui_;
  lomaris::Ui& screen_;
  Settings& settings_;
  QMenu* mnuOpenPopup_;
  RunMenu* runs_ = nullptr;  ///< none: there is nothing to run a model with
  std::set<const QAction*> offered_;
  bool showing_ = false;  ///< the controls are being filled: their signals are not the user's
  bool projectOpen_ = false;
  std::size_t popupSlot_ = 0;  ///< the slot whose pop-up is open
  ProjectDesk desk_;
};

}  // namespace lomaris

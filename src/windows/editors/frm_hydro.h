#pragma once

#include <QMenu>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "editors/hydro_desk.h"
#include "windows/core/editor_window.h"
#include "windows/core/picked_date.h"
#include "windows/spreadsheet/spreadsheet.h"

class QAction;
class QDateTimeEdit;
class QLineEdit;
class QToolButton;

namespace Ui {
class frmHydro;
}

namespace lomaris {

/// The editor of the hydrodynamic input file: run parameters and time steps on one tab, the files
/// of the network on the next, and on the third the branches, one at a time.
class frmHydro : public EditorWindow, private HydroView {
  Q_OBJECT

 public:
  explicit frmHydro(const EditorSurroundings& around);
  ~frmHydro() override;

  void Initialize(const EditRequest& request) override;
  bool EditsNetwork() const override { return desk_.EditsNetwork(); }
  std::string FileName() const override { return desk_.FileName(); }
  bool HasUnsavedChanges() override { return !EndGridEdits() || desk_.HasChanges(); }
  void LookupsRenamed(const std::string& from, const std::string& to,
                      const std::vector<std::string>& xsects) override;
  void LibrarySaved(const std::string& fileName) override;

 protected:
  bool Save(bool saveAs) override;
  bool MayClose() override;
  void changeEvent(QEvent* event) override;

 private:
  struct FileControls {
    NetworkFile File;
    QLineEdit* Name;
    QToolButton* Edit;
    QToolButton* Select;
  };

  HydroForm Form() const override;
  void ShowForm(const HydroForm& form) override;
  BranchForm Branch() const override;
  void ShowBranch(const BranchForm& form) override;
  void ShowBranchList(const std::vector<std::string>& names, int selected) override;
  void SetCaption(const std::string& caption) override;

  void SetUpGrids();
  void ConnectGrids();
  void ConnectForm();
  void ConnectText(QLineEdit* field);
  void ConnectDate(QDateTimeEdit* picker);
  void ConnectFiles();
  void ConnectBranch();
  void SetFileButtons();
  void SelectBranch(int entry);
  void ShowUnits();
  void ShowDownstream();
  void ShowProfile();

  // The menus.
  void SetIcons();
  void ConnectMenus();
  void ConnectPopup();
  void ShowPopup(QToolButton* button, bool isUpstream);
  void ShowPicture(bool visible);

  std::array<Spreadsheet*, 3> Grids() const;
  /// False: an edit under way was refused, and its editor is still open.
  bool EndGridEdits();
  /// Does what takes the cells of the branch on view.
  void WithBranch(void (HydroDesk::*action)());

  std::unique_ptr<::Ui::frmHydro> ui_;
  EditorSurroundings around_;
  QMenu* mnuBCFPopup_;
  std::array<FileControls, 3> files_;
  PickedDate start_;
  PickedDate end_;
  HydroForm shown_;          ///< what was shown last
  BranchForm shownBranch_;   ///< the same of the branch
  int entry_ = -1;           ///< of the branch on view in `cboBranchH`
  std::vector<int> marked_;  ///< rows of cross sections whose shapes are not in the library
  bool isPopupUpstream_ = false;
  bool isOpen_ = false;
  HydroDesk desk_;
};

}  // namespace lomaris

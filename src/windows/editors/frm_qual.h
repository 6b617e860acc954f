#pragma once

#include <QMenu>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "editors/qual_desk.h"
#include "windows/core/editor_window.h"
#include "windows/core/picked_date.h"
#include "windows/spreadsheet/spreadsheet.h"

class QLineEdit;
class QProgressBar;
class QToolButton;

namespace Ui {
class frmQual;
}

namespace lomaris {

/// The editor of the water quality input file: the simulation, its files and constituents, the
/// global coefficients, and one branch at a time its coefficients and those of its cross sections.
class frmQual : public EditorWindow, private QualView {
  Q_OBJECT

 public:
  explicit frmQual(const EditorSurroundings& around);
  ~frmQual() override;

  void Initialize(const EditRequest& request) override;
  std::string FileName() const override { return desk_.FileName(); }
  bool NeedsNetwork() const override { return true; }
  bool HasUnsavedChanges() override { return !EndEdits() || desk_.HasChanges(); }

 protected:
  bool Save(bool saveAs) override { return EndEdits() && desk_.Save(saveAs); }
  bool MayClose() override { return EndEdits() && desk_.QueryUnload(); }
  void changeEvent(QEvent* event) override;

 private:
  struct FileControls {
    QualFile File;
    QLineEdit* Name;
    QToolButton* Edit;
    QToolButton* Select;
  };

  /// A grid of coefficients and what belongs to it.
  struct CoefficientGrid {
    Spreadsheet* Grid;
    CoefficientSheet* Sheet;
    QLineEdit* Filter;  ///< null where there is none
    std::string Filtered = {};
  };

  QualForm Form() const override;
  void ShowForm(const QualForm& form) override;
  QualBranchForm Branch() const override;
  void ShowBranch(const QualBranchForm& form) override;
  void ShowBranchList(const std::vector<std::string>& names, int selected) override;
  bool EndEdits() override;
  void ShowProgress(int percent) override;
  void SetCaption(const std::string& caption) override;

  // The grids.
  void SetUpGrids();
  void SetUpCoefficients(CoefficientGrid& grid);
  void SetColumnWidths(const CoefficientGrid& grid);
  void ShowParameter(const CoefficientGrid& grid);
  void ApplyFilter(CoefficientGrid& grid);
  void ForgetFilters();
  void ShowByXSect(bool byXSect);
  void ResetToDefaults();
  std::array<Spreadsheet*, 7> Grids() const;

  // Fields and menus.
  void ConnectForm();
  void ConnectFiles();
  void ConnectBranch();
  void ConnectMenus();
  QMenu* PopUp(const char* name, const std::vector<QAction*>& entries);
  void ShowMetPopup();
  void ShowBoundaryPopup(QToolButton* button, bool isUpstream);
  void ShowPage(int page);
  void SelectBranch(int entry);
  void SetFileButtons();

  std::unique_ptr<::Ui::frmQual> ui_;
  EditorSurroundings around_;
  std::array<FileControls, 2> files_;
  std::array<CoefficientGrid, 5> coefficients_;
  QProgressBar* progress_;
  QMenu* mnuMetPopup_ = nullptr;
  QMenu* mnuBCFPopup_ = nullptr;
  PickedDate start_;
  PickedDate end_;
  QualForm shown_;              ///< what was shown last
  QualBranchForm shownBranch_;  ///< the same of the branch
  int entry_ = -1;              ///< of the branch on view in `SSTabBranchQ`
  bool isPopupUpstream_ = false;
  bool isOpen_ = false;
  QualDesk desk_;
};

}  // namespace lomaris

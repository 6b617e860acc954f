#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editors/coefficient_sheet.h"
#include "editors/qual_network.h"
#include "editors/qual_view.h"
#include "editors/surroundings.h"
#include "model/file_names.h"
#include "model/kinetic_catalogue.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// The caption of the water quality editor, by which a second window on a file is known.
std::string QualCaption(const std::string& fileName);

/// The auxiliary files of the water quality side, in the order of their fields.
enum class QualFile { Lateral, HeatLoads };

/// Entries of the pop-up of a boundary field, in its order.
enum class QualBoundary { Edit, Open, New, None };

/// Entries of `mnuMetPopup`, in its order.
enum class MetAction { Edit, Replace, Add, New, Remove };

/// The logic of the water quality editor: what its fields, lists, menus and buttons do with the
/// water quality input in memory. Every action is a routine of its own whose failure is reported
/// under its name. What the desk itself puts into the window is no action of the user's.
class QualDesk {
 public:
  QualDesk(const EditorSurroundings& around, QualView& view);
  QualDesk(const QualDesk&) = delete;
  QualDesk& operator=(const QualDesk&) = delete;

  // The grids, for the window to show.
  Sheet& PrintSteps() { return steps_; }
  Sheet& Plotted() { return plotted_; }
  CoefficientSheet& GlobalKinetics() { return global_; }
  CoefficientSheet& BranchKinetics() { return branchKinetics_; }
  CoefficientSheet& XSectKinetics() { return xsectKinetics_; }
  CoefficientSheet& InitialCond() { return initial_; }
  CoefficientSheet& LateralInflows() { return lateral_; }

  /// Loads a file that belongs to the network in memory, and shows it. No file, one of an empty
  /// name or `kNewQualFile`: builds an input from the network. `aside`: the file does not enter the
  /// project. False: the file cannot be read, or the user keeps the one that is open; nothing has
  /// changed then.
  bool Open(const std::string& fileName, bool aside = false);

  /// The file that is open here; empty for a new one.
  std::string FileName() const { return open_ ? Qual().FileName : std::string(); }

  /// Whether what is open here has changes that are not on disk.
  bool HasChanges() const { return open_ && Qual().Dirty; }

  /// False: not saved. The user has been told why, or has cancelled.
  bool Save(bool saveAs);

  /// Asks about unsaved changes. False: the window is to stay.
  bool QueryUnload();

  /// The user has changed a field or a cell.
  void Edited();

  /// The window has come to the front: the network may have got other branches or cross sections.
  void Activated();

  // False: the user has been told what is wrong; the date stays.
  bool StartDateLeft();
  bool EndDateLeft();

  /// `btnSelectAllBypass` and `btnSelectNoneBypass`.
  void CalculateAll(bool calculate);

  /// What is to be said of a cell of `ssPlotted`: a name that is not the network's. Empty: nothing.
  std::string PlottedRemark(int row, int col) const;

  // The files. An action that is not offered does nothing.
  bool OffersEdit(QualFile file) const;
  void EditFile(QualFile file);
  void SelectFile(QualFile file);
  bool OffersMet(MetAction action) const;
  void RunMet(MetAction action);
  bool OffersBoundary(QualBoundary action, bool isUpstream) const;
  void RunBoundary(QualBoundary action, bool isUpstream);

  /// Stores the branch on view and shows another, from 0. False: the store was stopped, and the
  /// same branch is to stay.
  bool SelectBranch(int entry);

  // Which coefficients a grid shows, and how. False: a cell was refused, and nothing has changed.
  bool ShowByXSect(bool byXSect);
  bool Filter(CoefficientSheet& sheet, const std::string& filter);

  /// Gives the selected coefficients of a grid their defaults.
  void ResetToDefaults(CoefficientSheet& sheet);

  /// Whether names of branches or cross sections differ from the network's, and what ends that.
  bool OffersNetworkNames() const;
  void TakeNetworkNames();

 private:
  /// What a file is edited with that does not enter the project.
  struct OwnRecords {
    ProjectData Project;
    QualInput Qual;
  };

  bool IsAside() const { return own_ != nullptr; }
  ProjectData& Project() const { return *project_; }
  QualInput& Qual() const { return *qual_; }
  void EditRecords(std::unique_ptr<OwnRecords> own);

  bool Run(const char* routine, const std::function<bool()>& action);
  void SetUpGrids();
  void Tell(const std::string& text, const std::string& title);
  std::unique_ptr<OwnRecords> RecordsAside(const std::string& fileName) const;
  std::optional<QualInput> Load(const std::string& fileName, ProjectData& project, NamesFrom names);
  void KeepAsOpened();
  bool MayDropChanges();
  bool SaveOnTheWay();
  void GiveUp();
  void ShowForm(const QualForm& form);
  void ShowAll();
  std::vector<std::string> BranchNames() const;
  void ListBranches(int selected);
  void ShowBranches(int entry);
  void ShowEntry(int entry);
  void ShowBranch(const QualBranchForm& form);
  void FillPlotted();
  void FillNetworkNames();
  void TakePlotted();
  void TakeBoundaryFields();
  bool TakeBranch();
  bool TakeAll();
  void BypassTemperature();
  bool HasEnoughXSects();
  bool FollowNetwork();
  void ShowNetwork();
  bool TakeProjectsNames();
  void FollowProjectsNames();
  bool Write(bool saveAs);
  void PutMet(QualForm form, std::size_t place, const std::string& name);
  void EditMet(const QualForm& form, MetAction action);

  EditorSurroundings around_;
  QualView& view_;
  std::unique_ptr<OwnRecords> own_;  ///< none: the shared ones are edited
  ProjectData* project_;             ///< the one that is edited
  QualInput* qual_;
  KineticCatalogue catalogue_;
  CoefficientSheet global_;
  CoefficientSheet branchKinetics_;
  CoefficientSheet xsectKinetics_;
  CoefficientSheet initial_;
  CoefficientSheet lateral_;
  Sheet steps_;
  Sheet plotted_;
  QualInput asOpened_;               ///< the input as it was opened or saved last
  ProjectData projectAsOpened_;      ///< the project at that moment
  NetworkNames network_;             ///< that whose branches and cross sections the input has
  NetworkNames networkAsOpened_;     ///< the same of `asOpened_`
  std::vector<std::string> listed_;  ///< branches, as they were shown
  QualBranchForm shownBranch_;       ///< the boundary fields as shown or taken last
  int branch_ = 0;                   ///< number of the branch on view; 0 for none
  bool keepsBranches_ = false;       ///< the user does not want the network's, for now
  bool showing_ = false;             ///< what changes in the window now is our own doing
  bool open_ = false;                ///< the window shows an input
};

}  // namespace lomaris

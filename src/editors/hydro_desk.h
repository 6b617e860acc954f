#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editors/hydro_view.h"
#include "editors/surroundings.h"
#include "model/xsect_library.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// The caption of the hydrodynamic editor, by which a second window on a file is known.
std::string HydroCaption(const std::string& fileName);

/// Entries of the pop-up of a boundary file field, in its order.
enum class BoundaryAction { Edit, Open, New };

/// The files that belong to the network, in the order of their fields.
enum class NetworkFile { Lateral, Withdrawal, Library };

/// The logic of the hydrodynamic editor: what its fields, lists, menus and buttons do with the
/// network in memory. Every action is a routine of its own whose failure is reported under its
/// name. What the desk itself puts into the window is no action of the user's.
class HydroDesk {
 public:
  HydroDesk(const EditorSurroundings& around, HydroView& view);
  HydroDesk(const HydroDesk&) = delete;
  HydroDesk& operator=(const HydroDesk&) = delete;

  // The grids, for the window to show.
  Sheet& TimeSteps() { return timeSteps_; }
  Sheet& Results() { return results_; }
  Sheet& XSects() { return xsects_; }

  /// Loads a file and the project's library and shows them. An empty name, or one of no file: a new
  /// network. `aside`: the file does not enter the project, and the network in memory stays what it
  /// is. False: the file cannot be read, or the user keeps the one that is open; nothing has
  /// changed then.
  bool Open(const std::string& fileName, bool aside = false);

  /// Whether what is open here is the network in memory.
  bool EditsNetwork() const { return open_ && !own_; }

  /// The file that is open here; empty for a new one.
  std::string FileName() const { return open_ ? Hydro().FileName : std::string(); }

  /// Whether what is open here has changes that are not on disk.
  bool HasChanges() const { return open_ && Hydro().Dirty; }

  /// False: not saved. The user has been told why, or has cancelled.
  bool Save(bool saveAs);

  /// Asks about unsaved changes. False: the window is to stay. Changes that are given up leave the
  /// network in memory as well.
  bool QueryUnload();

  /// The user has changed a field or a cell.
  void Edited();

  // --- Run parameters. False: the user has been told what is wrong; the text stays.
  void DatesChanged();
  bool EndDateLeft();
  bool SeedYearLeft();

  // --- The files of the network. An action that is not offered does nothing.
  bool OffersEdit(NetworkFile file) const;
  void EditFile(NetworkFile file);
  void SelectFile(NetworkFile file);

  // --- The branch on view. `entry` counts from 0.

  /// Stores the branch on view and shows another. False: the store was stopped, and the list shows
  /// the same branch as before.
  bool SelectBranch(int entry);
  /// Stores the branch on view.
  bool StoreBranch();
  void ChooseDSType();
  void ChooseDSBranch();
  void ConstantLeft();

  bool OffersBoundary(BoundaryAction action, bool isUpstream) const;
  /// Does nothing when the action is not offered.
  void RunBoundary(BoundaryAction action, bool isUpstream);

  /// A section of the library has got another name, and so have the look-ups of the network in
  /// memory: of these cross sections, or of all that had the old one.
  void LookupsRenamed(const std::string& from, const std::string& to,
                      const std::vector<std::string>& xsects);
  /// A library was written: it may be the one that the look-ups refer to.
  void LibrarySaved(const std::string& fileName);

  /// Rows of `XSects` whose lookup names the library does not hold.
  std::vector<int> UnknownLookups() const;

  // --- The network.
  void AddBranch();
  void DeleteBranch();
  void RenameBranch();

 private:
  /// What a file is edited with that does not enter the project: nothing that it says, or that a
  /// save puts into the project, is to reach the records that the windows share.
  struct OwnRecords {
    ProjectData Project;
    HydroInput Hydro;
  };

  bool IsAside() const { return own_ != nullptr; }
  ProjectData& Project() const { return *project_; }
  HydroInput& Hydro() const { return *hydro_; }
  void EditRecords(std::unique_ptr<OwnRecords>& own);

  bool Run(const char* routine, const std::function<bool()>& action);
  void SetUpGrids();
  void LoadLibrary();
  void Tell(const std::string& text, const std::string& title);
  bool MayDropChanges();
  bool SaveOnTheWay();
  void GiveUp();
  void FollowProjectsNames();
  void KeepAsOpened();
  bool LoadNetwork(const std::string& fileName, bool asked);
  void ShowForm(const HydroForm& form);
  void ShowAll();
  bool Write(bool saveAs);
  bool TakeAll();

  void ShowBranch(const BranchForm& form);
  void ShowList(int entry);
  void ShowEntry(int entry);
  void ListAndShow(int entry);
  void CompareBoundaryFiles(int first, int last);
  void CheckRecord() const;
  bool TakeBranch();
  void WarnOfCoefficient();
  void ResetBranchesInto(int branch, const std::vector<XSectRec>& xsects);
  void TakeXSects(std::vector<XSectRec> xsects);
  void AppendBranch(const std::string& name);
  int Entry() const;

  EditorSurroundings around_;
  HydroView& view_;
  std::unique_ptr<OwnRecords> own_;  ///< none: the shared ones are edited
  ProjectData* project_;             ///< the one that is edited
  HydroInput* hydro_;
  Sheet timeSteps_;
  Sheet results_;
  Sheet xsects_;
  XSectLibrary library_;
  HydroInput asOpened_;          ///< the network as it was opened or saved last
  ProjectData projectAsOpened_;  ///< the project at that moment
  std::vector<int> listed_;      ///< numbers of the branches in `cboBranchH`
  int branch_ = 0;               ///< number of the branch on view; 0 for none
  bool showing_ = false;         ///< what changes in the window now is our own doing
  bool open_ = false;            ///< the window shows a network
  bool edited_ = false;          ///< here, since it was opened or saved
};

}  // namespace lomaris

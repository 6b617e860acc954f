// What the hydrodynamic editor does with the branches of the network.

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "core/files.h"
#include "core/raised_flag.h"
#include "editors/field_files.h"
#include "editors/hydro_desk.h"
#include "editors/typed_values.h"
#include "editors/xsect_sheet.h"
#include "model/file_names.h"

namespace lomaris {
namespace {

constexpr int kBoundarySlot = 5;  ///< of the project window

constexpr const char* kFlowWarning =
    "Please be aware that it may be difficult to achieve a stable hydrodynamic analysis when "
    "specifying flow as the downstream boundary condition because the river may overflow or run "
    "dry if the sum of all inflows is not equal to the outflow; use this option with care.";
constexpr const char* kRestructuringWarning =
    "Changing the downstream branch to which this branch flows will significantly restructure your "
    "model and should be done with care.\r\n\r\n"
    "If this branch flows to the upstream-most cross section of the receiving branch, it must have "
    "a downstream boundary condition, and the receiving branch must have no upstream boundary "
    "condition.\r\n\r\n"
    "If this branch discharges into any other cross section, it may not specify downstream "
    "boundary conditions; they will be internally computed by the model.\r\n\r\n"
    "Please refer to the Tavresk documentation. This message will not be repeated.";
constexpr const char* kAddWarning =
    "Adding a new branch to the model must be done with great care because the basic geometric "
    "structure of the entire model is affected. You must make sure that all related files are "
    "updated to reflect the new geometry, including the Water Quality input file and Auxiliary "
    "files.\r\n\r\nAre you sure you want to continue?";
constexpr const char* kDeleteWarning =
    "Deleting a branch from the model must be done with great care because the basic geometric "
    "structure of the entire model is affected. This is a DESTRUCTIVE operation which cannot be "
    "undone. You must make sure that all related files are updated to reflect the new geometry, "
    "including the Water Quality input file and Auxiliary files.\r\n\r\nAre you sure you want to "
    "continue?";

bool Agreed(Ui& ui, const char* warning) {
  return ui.ShowMessage({.Text = warning,
                         .Title = "Warning!",
                         .BoxIcon = Icon::Warning,
                         .BoxButtons = Buttons::OkCancel}) == Answer::Ok;
}

/// Whether the place of a cross section is another one's now. A new name in the same place is the
/// same cross section, unless one of the two names stands or stood elsewhere.
bool IsAnother(const BranchRec& before, const std::vector<XSectRec>& now, std::int32_t number) {
  if (number < 1 || number > before.XSectCount || number > std::ssize(now)) return false;
  const std::string& was = before.XSects[number].Name;
  const std::string& is = now[static_cast<std::size_t>(number - 1)].Name;
  const auto has = [](const auto& xsects, const std::string& name) {
    return std::ranges::any_of(xsects, [&](const XSectRec& each) { return each.Name == name; });
  };
  return was != is && (has(now, was) || has(before.XSects, is));
}

/// Puts the record's name into the project, where it names another file. True when it did.
bool Overwrite(std::string& projects, const std::string& records) {
  if (NormaliseFileName(projects, true) == NormaliseFileName(records, true)) return false;
  projects = records;
  return true;
}

}  // namespace

/// The place of the branch on view in the list; -1 for none.
int HydroDesk::Entry() const {
  const auto found = std::find(listed_.begin(), listed_.end(), branch_);
  return found == listed_.end() ? -1 : static_cast<int>(found - listed_.begin());
}

void HydroDesk::ShowBranch(const BranchForm& form) {
  const RaisedFlag ownChange(showing_);
  view_.ShowBranch(form);
}

void HydroDesk::ShowList(int entry) {
  std::vector<std::string> names;
  for (const int number : listed_) names.push_back(Hydro().Branches[number].Name);
  const RaisedFlag ownChange(showing_);
  view_.ShowBranchList(names, entry);
}

void HydroDesk::ListAndShow(int entry) {
  ShowList(entry);
  ShowEntry(entry);
}

void HydroDesk::ShowEntry(int entry) {
  branch_ = entry < 0 ? 0 : listed_.at(static_cast<std::size_t>(entry));
  if (branch_ > 0) CompareBoundaryFiles(branch_, branch_);
  ShowBranch(branch_ > 0 ? BranchFormOf(Hydro(), branch_) : BranchForm());
  FillXSects(xsects_, branch_ > 0 ? Hydro().Branches[branch_] : BranchRec());
}

/// Of all branches together when a file is opened: one that names its branches out of order has
/// their boundary files crosswise, and one branch alone would put a name into the project twice.
void HydroDesk::CompareBoundaryFiles(int first, int last) {
  const HydroInput& hydro = Hydro();
  ProjectData& project = Project();
  bool changed = false;
  if (project.BCFilesH.UpperBound() < hydro.BranchCount) project.BCFilesH.Resize(hydro.BranchCount);
  for (int i = first; i <= last; ++i) {
    const bool upstream = Overwrite(project.BCFilesH[i].Upstream, hydro.Branches[i].USFile);
    const bool downstream = Overwrite(project.BCFilesH[i].Downstream, hydro.Branches[i].DSFile);
    if (!upstream && !downstream) continue;
    project.BCCountH = Max(project.BCCountH, static_cast<std::int16_t>(i));
    changed = true;
  }
  if (!changed) return;
  project.Dirty = true;
  if (!own_) around_.Windows.RefreshProjectWindow();
}

bool HydroDesk::SelectBranch(int entry) {
  if (showing_) return true;
  return Run("cboBranchH_Click", [&] {
    if (!TakeBranch()) {
      ShowList(Entry());
      return false;
    }
    ShowEntry(entry);
    return true;
  });
}

bool HydroDesk::StoreBranch() {
  return Run("StoreBranch", [&] { return TakeBranch(); });
}

void HydroDesk::WarnOfCoefficient() {
  const BranchRec& branch = Hydro().Branches[branch_];
  if (branch.DSType != 'R' || branch.DSValue > 0) return;
  Tell("For branch '" + Hydro().Branches[branch_].Name +
           "' you indicated that a rating curve is to be used as the downstream boundary "
           "condition, however, the coefficient a was set to a number less than or equal to zero. "
           "Please edit this value or Vesk will have an invalid downstream boundary condition.",
       "Warning");
}

/// The cross section that another branch flows into is known by its number. As many rows out as in
/// leave their count alone, but not always what stands in a row.
void HydroDesk::ResetBranchesInto(int branch, const std::vector<XSectRec>& xsects) {
  HydroInput& hydro = Hydro();
  const BranchRec& before = hydro.Branches[branch];
  const bool counted = std::ssize(xsects) != before.XSectCount;
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    BranchRec& other = hydro.Branches[i];
    if (i == branch || other.DSBranch != branch || other.DSXSect <= 1) continue;
    if (!counted && !IsAnother(before, xsects, other.DSXSect)) continue;
    other.DSXSect = 0;
    Tell("You inserted or deleted some rows in this branch, but the branch called \"" + other.Name +
             "\" discharges into it. Because the downstream cross section number may have changed "
             "it has been reset to 0; please reselect the downstream cross section number for this "
             "other branch.",
         "Warning");
  }
}

/// All windows share one network in memory. When another one has read another network meanwhile,
/// nothing of what is shown here may go into that.
void HydroDesk::CheckRecord() const {
  if (Hydro().FileName == asOpened_.FileName) return;
  throw RuntimeError(ErrorNumber::Internal,
                     "the network in memory is no longer the one on view, " + asOpened_.FileName);
}

/// A refused row or field leaves the branch, and those that flow into it, as they were.
bool HydroDesk::TakeBranch() {
  CheckRecord();
  if (branch_ == 0) return true;
  BranchRec& branch = Hydro().Branches[branch_];
  std::optional<std::vector<XSectRec>> xsects = XSectsIn(xsects_, branch, around_.Screen);
  if (!xsects || !StoreBranchFields(view_.Branch(), branch_, branch, around_.Screen)) return false;
  WarnOfCoefficient();
  ResetBranchesInto(branch_, *xsects);
  TakeXSects(*std::move(xsects));
  return true;
}

void HydroDesk::TakeXSects(std::vector<XSectRec> xsects) {
  if (xsects.size() > std::numeric_limits<std::int16_t>::max()) {
    throw RuntimeError(ErrorNumber::Overflow, NumberText(static_cast<std::int64_t>(xsects.size())) +
                                                  " cross sections in a branch");
  }
  BranchRec& branch = Hydro().Branches[branch_];
  branch.XSectCount = static_cast<std::int16_t>(xsects.size());
  branch.XSects = BoundedArray<XSectRec>(1, branch.XSectCount);
  std::move(xsects.begin(), xsects.end(), branch.XSects.begin());
}

void HydroDesk::ChooseDSType() {
  if (showing_) return;
  Run("cboDSType_Click", [&] {
    Edited();
    const BranchForm form = view_.Branch();
    ShowBranch(form);
    if (form.DSType == kDSFlow) {
      around_.Screen.ShowMessage(
          {.Text = kFlowWarning, .Title = "Warning", .BoxIcon = Icon::Information});
    }
    return true;
  });
}

void HydroDesk::ChooseDSBranch() {
  if (showing_ || branch_ == 0) return;
  Run("cboDSBranch_Click", [&] {
    Edited();
    if (!std::exchange(around_.Session.ToldOfRestructuring, true)) {
      Tell(kRestructuringWarning, "Warning");
    }
    BranchForm form = view_.Branch();
    OfferXSects(form, Hydro(), branch_, Hydro().Branches[branch_].DSXSect);
    ShowBranch(form);
    return true;
  });
}

void HydroDesk::ConstantLeft() {
  Run("txtUSValue_LostFocus", [&] {
    BranchForm form = view_.Branch();
    form.USValue = PlainConstant(form.USValue);
    form.DSValue = PlainConstant(form.DSValue);
    ShowBranch(form);
    return true;
  });
}

bool HydroDesk::OffersBoundary(BoundaryAction action, bool isUpstream) const {
  const BranchForm form = view_.Branch();
  if (branch_ == 0 || (!isUpstream && !LookOf(form.DSType).OffersFile)) return false;
  if (action == BoundaryAction::Open) return true;
  if (action == BoundaryAction::New) return around_.Windows.OffersEditor("BCF");
  return CanEdit(around_, "BCF", isUpstream ? form.USFile : form.DSFile, Project().FileName);
}

void HydroDesk::RunBoundary(BoundaryAction action, bool isUpstream) {
  if (!OffersBoundary(action, isUpstream)) return;
  Run("mnuBCFPopupItem_Click", [&] {
    BranchForm form = view_.Branch();
    std::string& field = isUpstream ? form.USFile : form.DSFile;
    if (action == BoundaryAction::Open) {
      const std::string chosen = AskForFile(around_, kBoundarySlot, field);
      if (chosen.empty()) return false;
      field = chosen;
      ShowBranch(form);
      Edited();
      return true;
    }
    const std::string name = action == BoundaryAction::Edit ? field : std::string();
    EditRequest request = RequestFor("BCF", kBoundarySlot, name, Project().FileName, IsAside());
    request.Row = branch_;
    request.IsUpstream = isUpstream;
    const int type = isUpstream ? form.USType : form.DSType;
    const std::string_view letters = isUpstream ? kUSLetters : kDSLetters;
    if (type >= 0) request.BoundaryType = letters[static_cast<std::size_t>(type)];
    around_.Windows.FileEdit(request);
    return true;
  });
}

std::vector<int> HydroDesk::UnknownLookups() const {
  return RowsWithUnknownLookup(xsects_, library_);
}

/// More than twenty branches are not refused here: the limit is that of the reader, which says so.
void HydroDesk::AppendBranch(const std::string& name) {
  HydroInput& hydro = Hydro();
  ProjectData& project = Project();
  ++hydro.BranchCount;
  ++project.BCCountH;
  ++project.BCCountQ;
  const auto extend = [](auto& array, std::int64_t count) {
    if (array.UpperBound() < count) array.Resize(count);
  };
  extend(hydro.Branches, hydro.BranchCount);
  extend(project.BCFilesH, Max(project.BCCountH, hydro.BranchCount));
  extend(project.BCFilesQ, project.BCCountQ);
  hydro.Branches[hydro.BranchCount] = {};
  hydro.Branches[hydro.BranchCount].Name = name;
  if (!own_) {  // the water quality of another network stays as it is
    QualInput& qual = around_.Qual;
    ++qual.BranchCount;
    extend(qual.Branches, qual.BranchCount);
    qual.Branches[qual.BranchCount] = {};
    qual.Branches[qual.BranchCount].Name = name;
  }
  Edited();
  project.Dirty = true;
  listed_.push_back(hydro.BranchCount);
  if (!own_) around_.Windows.RefreshProjectWindow();
}

void HydroDesk::AddBranch() {
  Run("mnuEditAddBranch_Click", [&] {
    Ui& ui = around_.Screen;
    if (!Agreed(ui, kAddWarning)) return false;
    const std::string name =
        TrimField(ui.AskText({.Prompt = "Enter name of branch to add:", .Title = "Add Branch"}));
    if (name.empty() || !TakeBranch()) return false;
    AppendBranch(name);
    ListAndShow(static_cast<int>(listed_.size()) - 1);
    return true;
  });
}

/// The branch leaves the list alone. Its record stays in the network, and a save writes it: other
/// files still count on its number, and a branch taken out by mistake is back in the list when the
/// file is opened again.
void HydroDesk::DeleteBranch() {
  if (branch_ == 0) return;
  Run("mnuEditDeleteBranch_Click", [&] {
    if (!Agreed(around_.Screen, kDeleteWarning) || !TakeBranch()) return false;
    const int entry = Entry();
    listed_.erase(listed_.begin() + entry);
    ListAndShow(listed_.empty() ? -1 : Max(entry - 1, 0));
    Edited();
    return true;
  });
}

/// The water quality record keeps the old name: it is a file of its own, and is edited there.
void HydroDesk::RenameBranch() {
  if (branch_ == 0) return;
  Run("mnuEditRenameBranch_Click", [&] {
    BranchRec& branch = Hydro().Branches[branch_];
    const std::string name =
        TrimField(around_.Screen.AskText({.Prompt = "Enter new name for this branch:",
                                          .Title = "Rename Branch",
                                          .Proposal = branch.Name}));
    if (name.empty()) return false;
    branch.Name = name;
    ShowList(Entry());
    Edited();
    return true;
  });
}

}  // namespace lomaris

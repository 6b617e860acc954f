// What the water quality editor does with the files that it names.

#include <algorithm>
#include <utility>

#include "core/files.h"
#include "core/raised_flag.h"
#include "editors/field_files.h"
#include "editors/qual_desk.h"
#include "editors/typed_values.h"

namespace lomaris {
namespace {

struct FileField {
  const char* Kind;
  int Slot;  ///< of the project window
  std::string QualForm::*Name;
};

/// In the order of `QualFile`.
constexpr FileField kFileFields[] = {{"LAT", 6, &QualForm::LatFile},
                                     {"POW", 7, &QualForm::PowFile}};
constexpr int kMetSlot = 8;
constexpr int kBoundarySlot = 9;

const FileField& FieldOf(QualFile file) {
  return kFileFields[static_cast<int>(file)];
}

/// The name of the selected meteorological file; empty for none.
std::string SelectedMet(const QualForm& form) {
  const bool isSelected = form.MetFile >= 0 && form.MetFile < std::ssize(form.MetFiles);
  return isSelected ? form.MetFiles[static_cast<std::size_t>(form.MetFile)] : std::string();
}

/// Where only the project has another value than before, the record takes it. True: it did.
template <class Value>
bool Follow(Value& mine, Value& mineBefore, const Value& projects, Value& projectsBefore) {
  if (projects == projectsBefore || mine != mineBefore) return false;
  projectsBefore = projects;
  mineBefore = projects;
  return std::exchange(mine, projects) != projects;
}

/// The list of meteorological files, which changes as a whole.
template <class Record>
std::vector<std::string> MetFilesOf(const Record& record) {
  return {record.MetFiles.begin(), record.MetFiles.begin() + record.MetCount};
}

template <class Record>
void SetMetFiles(Record& record, const std::vector<std::string>& names) {
  record.MetCount = static_cast<std::int16_t>(names.size());
  record.MetFiles = BoundedArray<std::string>(1, kMostMetFiles);
  std::ranges::copy(names, record.MetFiles.begin());
}

}  // namespace

/// What the user has chosen in the project window meanwhile stands, where nothing was chosen here.
bool QualDesk::TakeProjectsNames() {
  QualInput& qual = Qual();
  const ProjectData& project = Project();
  ProjectData& before = projectAsOpened_;
  bool taken = Follow(qual.LatFile, asOpened_.LatFile, project.LatFileQ, before.LatFileQ);
  taken |= Follow(qual.PowFile, asOpened_.PowFile, project.PowFileQ, before.PowFileQ);
  const auto metFiles = MetFilesOf(project);
  if (metFiles != MetFilesOf(before) && MetFilesOf(qual) == MetFilesOf(asOpened_)) {
    taken = true;
    SetMetFiles(qual, metFiles);
    SetMetFiles(asOpened_, metFiles);
    SetMetFiles(before, metFiles);
  }
  const auto count = Min(project.BCFilesQ.UpperBound(), before.BCFilesQ.UpperBound());
  for (int i = 1; i <= qual.BranchCount && i <= asOpened_.BranchCount && i <= count; ++i) {
    QualBranchRec& mine = qual.Branches[i];
    QualBranchRec& was = asOpened_.Branches[i];
    const BranchBCFiles& now = project.BCFilesQ[i];
    taken |= Follow(mine.USFile, was.USFile, now.Upstream, before.BCFilesQ[i].Upstream);
    taken |= Follow(mine.DSFile, was.DSFile, now.Downstream, before.BCFilesQ[i].Downstream);
  }
  return taken;
}

/// The fields show what has been taken: as they were they would put the old names back.
void QualDesk::FollowProjectsNames() {
  QualInput& qual = Qual();
  StoreForm(view_.Form(), qual);
  if (branch_ > 0) TakeBoundaryFields();
  if (!TakeProjectsNames()) return;
  ShowForm(FormOf(qual, around_.Hydro));
  if (branch_ == 0) return;
  shownBranch_ = BranchFormOf(qual, around_.Hydro, branch_);
  ShowBranch(shownBranch_);
}

bool QualDesk::OffersEdit(QualFile file) const {
  const FileField& field = FieldOf(file);
  return CanEdit(around_, field.Kind, view_.Form().*field.Name, Project().FileName);
}

void QualDesk::EditFile(QualFile file) {
  if (!OffersEdit(file)) return;
  Run("btnBrowse_Click", [&] {
    const FileField& field = FieldOf(file);
    around_.Windows.FileEdit(RequestFor(field.Kind, field.Slot, view_.Form().*field.Name,
                                        Project().FileName, IsAside()));
    return true;
  });
}

void QualDesk::SelectFile(QualFile file) {
  Run("btnBrowseSelect_Click", [&] {
    const FileField& field = FieldOf(file);
    QualForm form = view_.Form();
    const std::string chosen = AskForFile(around_, field.Slot, form.*field.Name);
    if (chosen.empty()) return false;
    form.*field.Name = chosen;
    ShowForm(form);
    Edited();
    return true;
  });
}

// --- Meteorological files.

bool QualDesk::OffersMet(MetAction action) const {
  const QualForm form = view_.Form();
  const std::string selected = SelectedMet(form);
  const bool hasRoom = std::ssize(form.MetFiles) < kMostMetFiles;
  switch (action) {
    case MetAction::Edit:
      return CanEdit(around_, "MET", selected, Project().FileName);
    case MetAction::Replace:
      return true;
    case MetAction::Add:
      return hasRoom;
    case MetAction::New:
      return hasRoom && around_.Windows.OffersEditor("MET");
    case MetAction::Remove:
      return !selected.empty();
  }
  return false;
}

/// At a place of the list that may be the one behind its end.
void QualDesk::PutMet(QualForm form, std::size_t place, const std::string& name) {
  if (place == form.MetFiles.size()) form.MetFiles.emplace_back();
  form.MetFiles.at(place) = name;
  form.MetFile = static_cast<int>(place);
  ShowForm(form);
  Edited();
}

void QualDesk::EditMet(const QualForm& form, MetAction action) {
  const bool isNew = action == MetAction::New;
  const std::string name = isNew ? std::string() : SelectedMet(form);
  EditRequest request = RequestFor("MET", kMetSlot, name, Project().FileName, IsAside());
  request.Row = static_cast<int>(isNew ? std::ssize(form.MetFiles) : form.MetFile) + 1;
  around_.Windows.FileEdit(request);
}

void QualDesk::RunMet(MetAction action) {
  if (!OffersMet(action)) return;
  Run("mnuMetItem_Click", [&] {
    QualForm form = view_.Form();
    if (action == MetAction::Edit || action == MetAction::New) {
      EditMet(form, action);
      return true;
    }
    if (action == MetAction::Remove) {
      form.MetFiles.erase(form.MetFiles.begin() + form.MetFile);
      form.MetFile = Min(form.MetFile, static_cast<int>(form.MetFiles.size()) - 1);
      ShowForm(form);
      Edited();
      return true;
    }
    const std::string chosen = AskForFile(around_, kMetSlot, SelectedMet(form), "Open");
    if (chosen.empty()) return false;
    const bool replaces = action == MetAction::Replace;
    // With no row selected the choice becomes the first one.
    const auto place =
        replaces ? static_cast<std::size_t>(Max(form.MetFile, 0)) : form.MetFiles.size();
    PutMet(std::move(form), place, chosen);
    return true;
  });
}

// --- Boundary files of the branch on view.

bool QualDesk::OffersBoundary(QualBoundary action, bool isUpstream) const {
  const QualBranchForm form = view_.Branch();
  const std::string name = FileIn(isUpstream ? form.USFile : form.DSFile);
  if (branch_ == 0) return false;
  if (action == QualBoundary::None) return !name.empty();
  if (!(isUpstream ? form.NeedsUSFile : form.NeedsDSFile)) return false;
  if (action == QualBoundary::Open) return true;
  if (action == QualBoundary::New) return around_.Windows.OffersEditor("BCF");
  return CanEdit(around_, "BCF", name, Project().FileName);
}

void QualDesk::RunBoundary(QualBoundary action, bool isUpstream) {
  if (!OffersBoundary(action, isUpstream)) return;
  Run("mnuBCFPopupItem_Click", [&] {
    QualBranchForm form = view_.Branch();
    std::string& field = isUpstream ? form.USFile : form.DSFile;
    if (action == QualBoundary::Edit || action == QualBoundary::New) {
      const std::string name = action == QualBoundary::Edit ? field : std::string();
      EditRequest request = RequestFor("BCF", kBoundarySlot, name, Project().FileName, IsAside());
      request.Row = branch_;
      request.IsUpstream = isUpstream;
      around_.Windows.FileEdit(request);
      return true;
    }
    const std::string chosen =
        action == QualBoundary::None ? kNoneSelected : AskForFile(around_, kBoundarySlot, field);
    if (chosen.empty()) return false;
    field = chosen;
    ShowBranch(form);
    Edited();
    return true;
  });
}

}  // namespace lomaris

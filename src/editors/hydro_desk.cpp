#include "editors/hydro_desk.h"

#include <utility>

#include "core/error_report.h"
#include "core/files.h"
#include "core/raised_flag.h"
#include "core/save_file.h"
#include "editors/lookup_names.h"
#include "editors/saving.h"
#include "editors/step_sheet.h"
#include "editors/typed_values.h"
#include "editors/xsect_sheet.h"
#include "model/file_names.h"
#include "model/hnp_file.h"
#include "model/network_in_memory.h"
#include "model/new_network.h"
#include "model/xsg_file.h"

namespace lomaris {
namespace {

constexpr int kHydroFilter = 0;
constexpr int kDaysOfNewNetwork = 30;
constexpr int kSeedYears = 50;  ///< the model's day numbers run over after that

/// A branch that one of the lists does not have has no files.
bool NameTheSame(const BoundedArray<BranchBCFiles>& one, const BoundedArray<BranchBCFiles>& other) {
  const auto name = [](const BoundedArray<BranchBCFiles>& files, std::int64_t i,
                       std::string BranchBCFiles::*end) {
    return NormaliseFileName(i <= files.UpperBound() ? files[i].*end : std::string(), true);
  };
  for (std::int64_t i = 1; i <= Max(one.UpperBound(), other.UpperBound()); ++i) {
    for (const auto end : {&BranchBCFiles::Upstream, &BranchBCFiles::Downstream}) {
      if (name(one, i, end) != name(other, i, end)) return false;
    }
  }
  return true;
}

}  // namespace

std::string HydroCaption(const std::string& fileName) {
  return "Hydrodynamic Input - " + fileName;
}

HydroDesk::HydroDesk(const EditorSurroundings& around, HydroView& view)
    : around_(around), view_(view), project_(&around.Project), hydro_(&around.Hydro) {
  SetUpGrids();
}

bool HydroDesk::Run(const char* routine, const std::function<bool()>& action) {
  bool done = false;
  Trap(around_.Screen, routine, "Form", "frmHydro").Run([&] { done = action(); });
  return done;
}

void HydroDesk::SetUpGrids() {
  SetUpSteps(timeSteps_, kTimeStepTable, around_.Screen);
  SetUpSteps(results_, kPrintStepTable, around_.Screen);
  SetUpXSects(xsects_, around_.Screen);
  for (Sheet* sheet : {&timeSteps_, &results_, &xsects_}) {
    sheet->Events.Change = [this, sheet] {
      KeepEmptyRow(*sheet);
      Edited();
    };
  }
}

void HydroDesk::Tell(const std::string& text, const std::string& title) {
  const bool isWarning = title == "Warning";
  around_.Screen.ShowMessage(
      {.Text = text, .Title = title, .BoxIcon = isWarning ? Icon::Warning : Icon::None});
}

void HydroDesk::Edited() {
  if (!showing_ && open_) Hydro().Dirty = edited_ = true;
}

/// Changes that wait in memory, a renamed cross section of the library for one, are not read over.
/// A file that is not there yet is a network without branches. `asked`: the user has just been
/// asked about the changes.
bool HydroDesk::LoadNetwork(const std::string& fileName, bool asked) {
  HydroInput& hydro = Hydro();
  const bool waits =
      hydro.HydroLoaded && hydro.Dirty && SameFile(hydro.FileName, fileName, Project().FileName);
  if (waits) return true;
  HydroInput before = hydro;
  if (!asked && !SaveNetworkFirst(hydro, Project(), around_.Screen)) return false;
  if (hydro.FileName == before.FileName) before.Dirty = hydro.Dirty;  // it was saved
  HydroInput loaded;
  const NamesFrom names = own_ ? NamesFrom::File : NamesFrom::Project;
  if (!LoadHNPFile(loaded, Project(), around_.Screen, fileName, names)) {
    hydro = std::move(before);
    return false;
  }
  if (!loaded.HydroLoaded) {
    loaded = NewNetwork(Today(), Today() + kDaysOfNewNetwork);
    loaded.FileName = fileName;
    loaded.LatFile = Project().LatFileH;
    loaded.WitFile = Project().WitFileH;
    loaded.XSGFile = Project().XSGFileH;
  }
  hydro = std::move(loaded);
  return true;
}

void HydroDesk::LoadLibrary() {
  const std::string name = FileIn(Project().XSGFileH);
  library_ = {};
  if (!LoadXSGFile(library_, Project(), around_.Screen, name)) {
    Tell("Cannot load Cross section file: " + name, "Error");
  }
}

bool HydroDesk::Open(const std::string& fileName, bool aside) {
  return Run("Initialize", [&] {
    const bool asked = EditsNetwork() && !aside && Hydro().Dirty;
    if (open_ && !MayDropChanges()) return false;
    std::unique_ptr<OwnRecords> records;
    if (aside) {
      records = std::make_unique<OwnRecords>(OwnRecords{around_.Project, {}});
      // The names in a file of another project mean what lies beside that file.
      std::string& beside = records->Project.FileName;
      beside = FindFile(fileName, beside).value_or(beside);
    }
    EditRecords(records);
    if (!LoadNetwork(fileName, asked)) {
      EditRecords(records);
      if (open_) ShowAll();  // without the changes that were given up
      return false;
    }
    view_.SetCaption(HydroCaption(fileName));
    open_ = true;
    LoadLibrary();
    CompareBoundaryFiles(1, Hydro().BranchCount);
    ShowAll();
    KeepAsOpened();
    return true;
  });
}

/// Puts the records in use, none for the shared ones, where the others were.
void HydroDesk::EditRecords(std::unique_ptr<OwnRecords>& own) {
  own_.swap(own);
  project_ = own_ ? &own_->Project : &around_.Project;
  hydro_ = own_ ? &own_->Hydro : &around_.Hydro;
}

void HydroDesk::KeepAsOpened() {
  edited_ = false;
  asOpened_ = Hydro();
  projectAsOpened_ = Project();
}

void HydroDesk::ShowForm(const HydroForm& form) {
  const RaisedFlag ownChange(showing_);
  view_.ShowForm(form);
}

void HydroDesk::ShowAll() {
  HydroInput& hydro = Hydro();
  ShowForm(FormOf(hydro));
  FillSteps(timeSteps_, {hydro.TimeStepCount, hydro.TimeSteps});
  FillSteps(results_, {hydro.PrintStepCount, hydro.PrintSteps});
  listed_.clear();
  for (int i = 1; i <= hydro.BranchCount; ++i) listed_.push_back(i);
  ListAndShow(listed_.empty() ? -1 : 0);
}

bool HydroDesk::MayDropChanges() {
  if (!Hydro().Dirty) return true;
  const Answer answer = AskToSaveChanges(kNetworkFile, around_.Screen);
  if (answer == Answer::Yes) return SaveOnTheWay();
  if (answer == Answer::No) GiveUp();
  return answer == Answer::No;
}

bool HydroDesk::SaveOnTheWay() {
  const ProjectData before = Project();
  const std::string name = Hydro().FileName;
  if (!Write(false)) return false;
  if (!NamesAnother(before.HydroFile, name, before.FileName)) return true;
  Project() = projectAsOpened_ = before;
  around_.Windows.RefreshProjectWindow();
  return true;
}

/// What this window has put into the project goes out again with the changes, where the project
/// still says it.
void HydroDesk::GiveUp() {
  ProjectData& project = Project();
  const auto takeBack = [&project](std::string& projects, const std::string& given,
                                   const std::string& before) {
    if (NormaliseFileName(before, true) == NormaliseFileName(given, true) ||
        NormaliseFileName(projects, true) != NormaliseFileName(given, true)) {
      return;
    }
    projects = before;
    project.Dirty = true;  // it may have been saved with the name meanwhile
  };
  for (int i = 1; i <= Hydro().BranchCount && i <= project.BCFilesH.Count(); ++i) {
    const BranchRec before = i <= asOpened_.BranchCount ? asOpened_.Branches[i] : BranchRec();
    takeBack(project.BCFilesH[i].Upstream, Hydro().Branches[i].USFile, before.USFile);
    takeBack(project.BCFilesH[i].Downstream, Hydro().Branches[i].DSFile, before.DSFile);
  }
  const ProjectData& before = projectAsOpened_;
  if (NameTheSame(project.BCFilesH, before.BCFilesH)) project.BCCountH = before.BCCountH;
  if (NameTheSame(project.BCFilesQ, before.BCFilesQ)) project.BCCountQ = before.BCCountQ;
  if (!own_) around_.Qual.BranchCount = Min(around_.Qual.BranchCount, asOpened_.BranchCount);
  Hydro() = asOpened_;
  edited_ = false;
  around_.Windows.RefreshProjectWindow();
}

bool HydroDesk::QueryUnload() {
  return Run("Form_QueryUnload", [&] { return !open_ || MayDropChanges(); });
}

bool HydroDesk::Save(bool saveAs) {
  return Run("mnuFileSave_Click", [&] { return Write(saveAs); });
}

/// Takes all that the window shows into the record. False: something was refused.
bool HydroDesk::TakeAll() {
  HydroInput& hydro = Hydro();
  Ui& ui = around_.Screen;
  return TakeBranch() && StoreForm(view_.Form(), hydro, ui) &&
         StoreSteps(timeSteps_, kTimeStepTable, hydro.StartDate,
                    {hydro.TimeStepCount, hydro.TimeSteps}, ui) &&
         StoreSteps(results_, kPrintStepTable, hydro.StartDate,
                    {hydro.PrintStepCount, hydro.PrintSteps}, ui);
}

bool HydroDesk::Write(bool saveAs) {
  HydroInput& hydro = Hydro();
  ProjectData& project = Project();
  const std::string name = NameToSaveUnder(hydro.FileName, hydro.OnDisk, saveAs, kHydroFilter,
                                           project.FileName, around_);
  if (name.empty() || !TakeAll()) return false;
  FollowProjectsNames();
  const std::string shared = around_.Hydro.FileName;
  if (own_ && SameFile(shared, name, around_.Project.FileName) &&
      !SaveNetworkFirst(around_.Hydro, around_.Project, around_.Screen)) {
    return false;
  }
  const bool saved = SaveHNPFile(hydro, project, around_.Screen, name);
  if (own_ && SameFile(shared, name, around_.Project.FileName)) {
    RereadNetwork(around_.Hydro, around_.Project, around_.Screen, shared);
  }
  if (!saved) return false;
  const bool otherLibrary = asOpened_.XSGFile != hydro.XSGFile;
  hydro.HydroLoaded = true;
  view_.SetCaption(HydroCaption(name));
  if (std::exchange(project.HydroFile, name) != name) project.Dirty = true;
  KeepAsOpened();
  around_.Windows.RefreshProjectWindow();
  if (otherLibrary) LoadLibrary();
  return true;
}

/// What the user has chosen in the project window meanwhile stands, where nothing was chosen here.
void HydroDesk::FollowProjectsNames() {
  constexpr std::pair<std::string HydroInput::*, std::string ProjectData::*> kNames[] = {
      {&HydroInput::LatFile, &ProjectData::LatFileH},
      {&HydroInput::WitFile, &ProjectData::WitFileH},
      {&HydroInput::XSGFile, &ProjectData::XSGFileH}};
  for (const auto& [mine, projects] : kNames) {
    const bool chosenHere = Hydro().*mine != asOpened_.*mine;
    const bool chosenThere = Project().*projects != projectAsOpened_.*projects;
    if (chosenThere && !chosenHere) Hydro().*mine = Project().*projects;
  }
  ShowForm(FormOf(Hydro()));
}

/// Changes given up later must not bring the old names back. Whoever renames says by `Dirty`
/// whether the network is as on disk, but for what was edited here.
void HydroDesk::LookupsRenamed(const std::string& from, const std::string& to,
                               const std::vector<std::string>& xsects) {
  if (!EditsNetwork()) return;
  Run("LookupsRenamed", [&] {
    if (!RenameLookups(asOpened_, from, to, xsects).empty()) asOpened_.Dirty = Hydro().Dirty;
    Hydro().Dirty = Hydro().Dirty || edited_;
    RenameSections(library_, from, to);
    RenameLookups(xsects_, from, to, xsects);
    return true;
  });
}

void HydroDesk::LibrarySaved(const std::string& fileName) {
  if (!open_ || !SameFile(FileIn(Project().XSGFileH), fileName, Project().FileName)) return;
  Run("LibrarySaved", [&] {
    LoadLibrary();
    return true;
  });
}

void HydroDesk::DatesChanged() {
  if (showing_) return;
  Run("DTPicker_Change", [&] {
    HydroForm form = view_.Form();
    form.SimPeriod = SimPeriodText(form.StartDate, form.EndDate);
    ShowForm(form);
    Edited();
    return true;
  });
}

bool HydroDesk::EndDateLeft() {
  const HydroForm form = view_.Form();
  if (form.EndDate > form.StartDate) return true;
  Tell("You must set the ending date of the simulation to be later than the starting date.",
       "Error");
  return false;
}

bool HydroDesk::SeedYearLeft() {
  return Run("txtSeedYear_LostFocus", [&] {
    const HydroForm form = view_.Form();
    std::int16_t year = Hydro().SeedYear;
    if (!TakeNumber(year, form.SeedYear, "Seed year", around_.Screen)) return false;
    if (year + kSeedYears >= ToInteger(FormatDate(form.EndDate, "yyyy"))) return true;
    Tell(
        "You must set the seed year to be no more than 50 years before the ending date of the "
        "simulation.",
        "Error");
    return false;
  });
}

}  // namespace lomaris

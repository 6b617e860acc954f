#include "editors/hydro_desk.h"

#include <utility>

#include "core/error_report.h"
#include "core/files.h"
#include "core/raised_flag.h"
#include "core/save_file.h"
#include "editors/lookup_names.h"
#include "editors/step_sheet.h"
#include "editors/typed_values.h"
#include "editors/xsect_sheet.h"
#include "model/file_names.h"
#include "model/hnp_file.h"
#include "model/new_network.h"
#include "model/unsaved_network.h"
#include "model/xsg_file.h"

namespace lomaris {
namespace {

constexpr int kHydroFilter = 0;
constexpr int kDaysOfNewNetwork = 30;
constexpr int kSeedYears = 50;  ///< the model's day numbers run over after that

}  // namespace

std::string HydroCaption(const std::string& fileName) {
  return "Hydrodynamic Input - " + fileName;
}

HydroDesk::HydroDesk(const EditorSurroundings& around, HydroView& view)
    : around_(around), view_(view) {
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
  if (!showing_ && open_) Hydro().Dirty = true;
}

/// Changes that wait in memory, a renamed cross section of the library for one, are not read over.
/// A file that is not there yet is a network without branches.
bool HydroDesk::LoadNetwork(const std::string& fileName) {
  HydroInput& hydro = Hydro();
  const bool waits =
      hydro.HydroLoaded && hydro.Dirty && SameFile(hydro.FileName, fileName, Project().FileName);
  if (waits) return true;
  if (!SaveNetworkFirst(hydro, Project(), around_.Screen)) return false;
  HydroInput loaded;
  if (!LoadHNPFile(loaded, Project(), around_.Screen, fileName)) return false;
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
    if (open_ && !MayDropChanges()) return false;
    std::unique_ptr<OwnRecords> records;
    if (aside) records = std::make_unique<OwnRecords>(OwnRecords{around_.Project, {}});
    own_.swap(records);
    if (!LoadNetwork(fileName)) {
      own_.swap(records);
      if (open_) ShowAll();  // without the changes that were given up
      return false;
    }
    view_.SetCaption(HydroCaption(fileName));
    asOpened_ = Hydro();
    open_ = true;
    LoadLibrary();
    ShowAll();
    return true;
  });
}

void HydroDesk::ShowForm(const HydroForm& form) {
  const RaisedFlag ownChange(showing_);
  view_.ShowForm(form);
}

void HydroDesk::ShowAll() {
  const HydroInput& hydro = Hydro();
  ShowForm(FormOf(hydro));
  FillSteps(timeSteps_, kTimeStepTable, hydro);
  FillSteps(results_, kPrintStepTable, hydro);
  listed_.clear();
  for (int i = 1; i <= hydro.BranchCount; ++i) listed_.push_back(i);
  ListAndShow(listed_.empty() ? -1 : 0);
}

bool HydroDesk::MayDropChanges() {
  if (!Hydro().Dirty) return true;
  const Answer answer = AskToSaveNetwork(around_.Screen);
  if (answer == Answer::Yes) return Write(false);
  if (answer == Answer::No) Hydro() = asOpened_;
  return answer == Answer::No;
}

bool HydroDesk::QueryUnload() {
  return Run("Form_QueryUnload", [&] { return !open_ || MayDropChanges(); });
}

bool HydroDesk::Save(bool saveAs) {
  return Run("mnuFileSave_Click", [&] { return Write(saveAs); });
}

/// Empty when the user does not want to save after all.
std::string HydroDesk::NameToSaveUnder(bool saveAs) {
  const std::string& name = Hydro().FileName;
  if (!saveAs && !name.empty()) return name;
  return SaveFile(around_.SharedTables.FileFilter[kHydroFilter], "*.hnp", 0, "Save As",
                  Project().FileName, around_.Screen, around_.Store);
}

/// Takes all that the window shows into the record. False: something was refused.
bool HydroDesk::TakeAll() {
  HydroInput& hydro = Hydro();
  Ui& ui = around_.Screen;
  return TakeBranch() && StoreForm(view_.Form(), hydro, ui) &&
         StoreSteps(timeSteps_, kTimeStepTable, hydro, ui) &&
         StoreSteps(results_, kPrintStepTable, hydro, ui);
}

bool HydroDesk::Write(bool saveAs) {
  HydroInput& hydro = Hydro();
  ProjectData& project = Project();
  const std::string name = NameToSaveUnder(saveAs);
  if (name.empty() || !TakeAll() || !SaveHNPFile(hydro, project, around_.Screen, name)) {
    return false;
  }
  const bool otherLibrary = asOpened_.XSGFile != hydro.XSGFile;
  hydro.HydroLoaded = true;
  asOpened_ = hydro;
  const std::string caption = view_.Caption();
  view_.SetCaption(caption.substr(0, caption.find('-')) + "- " + name);
  if (std::exchange(project.HydroFile, name) != name) project.Dirty = true;
  if (own_) ForgetSharedCopy(name);
  around_.Windows.RefreshProjectWindow();
  if (otherLibrary) LoadLibrary();
  return true;
}

/// A file written from here may be the one that the network in memory was read from: it is read
/// again when it is needed.
void HydroDesk::ForgetSharedCopy(const std::string& fileName) {
  if (SameFile(around_.Hydro.FileName, fileName, around_.Project.FileName)) {
    around_.Hydro = HydroInput();
  }
}

/// Changes given up later must not bring the old names back.
void HydroDesk::LookupRenamed(const std::string& from, const std::string& to) {
  if (!EditsNetwork()) return;
  Run("LookupRenamed", [&] {
    if (RenameLookups(asOpened_, from, to)) asOpened_.Dirty = true;
    RenameSections(library_, from, to);
    RenameLookups(xsects_, from, to);
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

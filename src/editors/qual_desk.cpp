#include "editors/qual_desk.h"

#include <utility>

#include "core/error_report.h"
#include "core/files.h"
#include "core/raised_flag.h"
#include "core/save_file.h"
#include "core/text.h"
#include "editors/qual_network.h"
#include "editors/saving.h"
#include "editors/step_sheet.h"
#include "editors/typed_values.h"
#include "model/qnp_file.h"

namespace lomaris {
namespace {

constexpr int kQualFilter = 1;
constexpr const char* kQualInputFile = "Water Quality input file";
constexpr const char* kKineticsRange = "0;99999";
constexpr const char* kConcentrationRange = "0;9999999";
constexpr int kTemperature = 1;  ///< among the constituents that are simulated

constexpr const char* kNeedsMetFile =
    "You have not specified any MET files, so you must bypass simulation of water temperature. The "
    "file has been modified to bypass calculation of water temperature. If you subsequently "
    "utilize one or more MET files, you will probably want to reenable calculation of this "
    "parameter.";

/// The constituents that are simulated, as parameters of the grids of concentrations.
BoundedArray<KineticParameter> Constituents(const Tables& tables) {
  BoundedArray<KineticParameter> parameters(1, kQualConstituents);
  for (int i = 1; i <= kQualConstituents; ++i) {
    parameters[i].GridRow = i;
    parameters[i].Name = tables.ConstituentShort[i + 1];
    parameters[i].Units = tables.ConstituentUnits[i + 1];
  }
  return parameters;
}

/// Whether an input is to be built.
bool IsNew(const std::string& fileName) {
  return fileName.empty() || fileName == kNewQualFile;
}

}  // namespace

std::string QualCaption(const std::string& fileName) {
  return "Water Quality Input - " + fileName;
}

QualDesk::QualDesk(const EditorSurroundings& around, QualView& view)
    : around_(around),
      view_(view),
      project_(&around.Project),
      qual_(&around.Qual),
      global_(kKineticsRange, false),
      branchKinetics_(kKineticsRange, false),
      xsectKinetics_(kKineticsRange, false),
      initial_(kConcentrationRange, true),
      lateral_(kConcentrationRange, true) {
  SetUpGrids();
}

bool QualDesk::Run(const char* routine, const std::function<bool()>& action) {
  bool done = false;
  Trap(around_.Screen, routine, "Form", "frmQual").Run([&] { done = action(); });
  return done;
}

void QualDesk::Tell(const std::string& text, const std::string& title) {
  const bool isWarning = title == "Warning";
  around_.Screen.ShowMessage(
      {.Text = text, .Title = title, .BoxIcon = isWarning ? Icon::Warning : Icon::None});
}

void QualDesk::Edited() {
  if (!showing_ && open_) Qual().Dirty = true;
}

// --- Opening.

/// Records to work on apart from the shared ones. The names in a file of another project mean what
/// lies beside that file; an input that is built has those of the project.
std::unique_ptr<QualDesk::OwnRecords> QualDesk::RecordsAside(const std::string& fileName) const {
  auto own = std::make_unique<OwnRecords>(OwnRecords{around_.Project, {}});
  std::string& beside = own->Project.FileName;
  if (!IsNew(fileName)) beside = FindFile(fileName, beside).value_or(beside);
  return own;
}

/// Nothing when the file cannot be read.
std::optional<QualInput> QualDesk::Load(const std::string& fileName, ProjectData& project,
                                        NamesFrom names) {
  QualInput loaded;
  QualLoad how;
  how.ProgramFolder = around_.ProgramFolder;
  how.SetProgress = [this](int percent) { view_.ShowProgress(percent); };
  how.Names = names;
  const bool read = LoadQNPFile(loaded, project, around_.Hydro, around_.Screen, fileName, how);
  view_.ShowProgress(100);
  if (!read) return std::nullopt;
  if (loaded.FileName.empty()) {  // nothing was there to be read
    loaded = NewQualInput(around_.Hydro, project, catalogue_);
    if (!IsNew(fileName)) loaded.FileName = fileName;
    loaded.Dirty = true;
  }
  return loaded;
}

/// None for the shared ones.
void QualDesk::EditRecords(std::unique_ptr<OwnRecords> own) {
  own_ = std::move(own);
  project_ = own_ ? &own_->Project : &around_.Project;
  qual_ = own_ ? &own_->Qual : &around_.Qual;
}

bool QualDesk::Open(const std::string& fileName, bool aside) {
  return Run("Initialize", [&] {
    if (open_ && !MayDropChanges()) return false;
    catalogue_ = BuildCatalogue(around_.Screen);
    auto own = aside ? RecordsAside(fileName) : nullptr;
    ProjectData& project = own ? own->Project : around_.Project;
    const bool asInFile = aside && !IsNew(fileName);
    auto loaded = Load(fileName, project, asInFile ? NamesFrom::File : NamesFrom::Project);
    if (!loaded) {
      if (open_) ShowAll();  // without the changes that were given up
      return false;
    }
    EditRecords(std::move(own));
    Qual() = *std::move(loaded);
    view_.SetCaption(QualCaption(fileName));
    open_ = true;
    keepsBranches_ = false;
    network_ = NamesOf(around_.Hydro);
    global_.SetParameters(catalogue_.Global);
    branchKinetics_.SetParameters(catalogue_.Branch);
    xsectKinetics_.SetParameters(catalogue_.XSect);
    ShowAll();
    KeepAsOpened();
    return true;
  });
}

void QualDesk::KeepAsOpened() {
  asOpened_ = Qual();
  projectAsOpened_ = Project();
  networkAsOpened_ = network_;
}

void QualDesk::ShowForm(const QualForm& form) {
  const RaisedFlag ownChange(showing_);
  view_.ShowForm(form);
}

void QualDesk::ShowAll() {
  QualInput& qual = Qual();
  ShowForm(FormOf(qual, around_.Hydro));
  FillSteps(steps_, {qual.PrintStepCount, qual.PrintSteps});
  global_.Fill({{"Value", qual.GlobalKinetics}});
  ShowBranches(0);
}

// --- Closing and saving.

bool QualDesk::MayDropChanges() {
  if (!Qual().Dirty) return true;
  const Answer answer = AskToSaveChanges(kQualInputFile, around_.Screen);
  if (answer == Answer::Yes) return SaveOnTheWay();
  if (answer == Answer::No) GiveUp();
  return answer == Answer::No;
}

bool QualDesk::SaveOnTheWay() {
  if (IsAside()) return Write(false);
  const ProjectData before = Project();
  const std::string name = Qual().FileName;
  if (!Write(false)) return false;
  if (!NamesAnother(before.QualFile, name, before.FileName)) return true;
  Project() = projectAsOpened_ = before;
  around_.Windows.RefreshProjectWindow();
  return true;
}

/// The branches may have followed the network, and are those of before again.
void QualDesk::GiveUp() {
  Qual() = asOpened_;
  network_ = networkAsOpened_;
}

bool QualDesk::QueryUnload() {
  return Run("Form_QueryUnload", [&] { return !open_ || MayDropChanges(); });
}

bool QualDesk::Save(bool saveAs) {
  return Run("mnuFileSave_Click", [&] { return Write(saveAs); });
}

/// Temperature is simulated from the weather.
void QualDesk::BypassTemperature() {
  QualInput& qual = Qual();
  if (qual.Bypass[kTemperature] || qual.MetCount > 0) return;
  Tell(kNeedsMetFile, "Warning");
  qual.Bypass[kTemperature] = true;
  Edited();
  QualForm form = view_.Form();
  form.Calculated[kTemperature - 1] = false;
  ShowForm(form);
}

/// Takes all that the window shows into the record. False: something was refused.
bool QualDesk::TakeAll() {
  QualInput& qual = Qual();
  if (!TakeBranch() || !global_.Take(around_.Screen)) return false;
  qual.GlobalKinetics = global_.ValuesOf(0);
  StoreForm(view_.Form(), qual);
  BypassTemperature();
  return StoreSteps(steps_, kQualPrintStepTable, qual.StartDate,
                    {qual.PrintStepCount, qual.PrintSteps}, around_.Screen);
}

/// A branch with too few cross sections could not be read again.
bool QualDesk::HasEnoughXSects() {
  for (int i = 1; i <= Qual().BranchCount; ++i) {
    if (Qual().Branches[i].XSectCount >= kFewestXSects) continue;
    TellTooFewXSects(around_.Screen);
    return false;
  }
  return true;
}

/// What was opened aside and is saved as the file of the project is the project's from then on.
bool QualDesk::Write(bool saveAs) {
  const std::string name = NameToSaveUnder(Qual().FileName, Qual().OnDisk, saveAs, kQualFilter,
                                           Project().FileName, around_);
  if (name.empty()) return false;
  FollowProjectsNames();
  if (!FollowNetwork() || !HasEnoughXSects() || !TakeAll()) return false;
  ProjectData& shared = around_.Project;
  const bool isProjects = SameFile(name, shared.QualFile, shared.FileName);
  ProjectData& project = isProjects ? shared : Project();
  if (!SaveQNPFile(Qual(), project, around_.Screen, name)) return false;
  if (own_ && isProjects) {
    around_.Qual = std::move(own_->Qual);
    EditRecords(nullptr);
  } else if (std::exchange(project.QualFile, name) != name) {
    project.Dirty = true;
  }
  view_.SetCaption(QualCaption(name));
  KeepAsOpened();
  around_.Windows.RefreshProjectWindow();
  return true;
}

// --- The fields.

bool QualDesk::StartDateLeft() {
  if (view_.Form().StartDate >= around_.Hydro.StartDate) return true;
  Tell(
      "The starting date for the water quality simulation must not be earlier than for the "
      "hydrodynamic simulation.",
      "Error");
  return false;
}

bool QualDesk::EndDateLeft() {
  if (view_.Form().EndDate <= around_.Hydro.EndDate) return true;
  Tell(
      "The ending date for the water quality simulation must not be later than for the "
      "hydrodynamic simulation.",
      "Error");
  return false;
}

void QualDesk::CalculateAll(bool calculate) {
  QualForm form = view_.Form();
  form.Calculated.fill(calculate);
  ShowForm(form);
  Edited();
}

void QualDesk::SetUpGrids() {
  SetUpSteps(steps_, kQualPrintStepTable, around_.Screen);
  steps_.Events.Change = [this] {
    KeepEmptyRow(steps_);
    Edited();
  };
  plotted_.Events.Change = [this] { Edited(); };
  for (CoefficientSheet* sheet : {&initial_, &lateral_}) {
    sheet->SetParameters(Constituents(around_.SharedTables));
  }
  for (CoefficientSheet* sheet :
       {&global_, &branchKinetics_, &xsectKinetics_, &initial_, &lateral_}) {
    sheet->Change = [this] { Edited(); };
  }
  // The formula of a cross section follows from values of the river and the branch as well.
  xsectKinetics_.SetDerived("Reaeration Formula", [this](const CoefficientSheet::Values& values) {
    return ReaerationFormula(global_.ValuesIn(0), branchKinetics_.ValuesIn(0), values);
  });
  for (CoefficientSheet* sheet : {&global_, &branchKinetics_}) {
    sheet->Change = [this] {
      xsectKinetics_.Derive();
      Edited();
    };
  }
}

bool QualDesk::Filter(CoefficientSheet& sheet, const std::string& filter) {
  return Run("txtFilter_Change", [&] {
    if (!sheet.Take(around_.Screen)) return false;
    sheet.SetFilter(filter);
    return true;
  });
}

bool QualDesk::ShowByXSect(bool byXSect) {
  return Run("chkXSectKinetics_Click", [&] {
    if (!xsectKinetics_.Take(around_.Screen)) return false;
    xsectKinetics_.SetByPlace(byXSect);
    return true;
  });
}

void QualDesk::ResetToDefaults(CoefficientSheet& sheet) {
  Run("mnuEditResetDefault_Click", [&] {
    sheet.ResetSelection();
    return true;
  });
}

}  // namespace lomaris

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

/// Where only the project has another value now, the record follows it.
template <class Value>
void Follow(Value& mine, const Value& mineBefore, const Value& projects,
            const Value& projectsBefore) {
  if (mine == mineBefore && projects != projectsBefore) mine = projects;
}

}  // namespace

std::string QualCaption(const std::string& fileName) {
  return "Water Quality Input - " + fileName;
}

QualDesk::QualDesk(const EditorSurroundings& around, QualView& view)
    : around_(around),
      view_(view),
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
std::unique_ptr<QualDesk::OwnRecords> QualDesk::RecordsAside(const std::string& fileName,
                                                             bool isNew) const {
  auto own = std::make_unique<OwnRecords>(OwnRecords{around_.Project, {}});
  std::string& beside = own->Project.FileName;
  if (!isNew) beside = FindFile(fileName, beside).value_or(beside);
  return own;
}

/// Into the records in use.
bool QualDesk::Load(const std::string& fileName, bool isNew) {
  QualInput loaded;
  QualLoad how;
  how.ProgramFolder = around_.ProgramFolder;
  how.SetProgress = [this](int percent) { view_.ShowProgress(percent); };
  how.Names = own_ && !isNew ? NamesFrom::File : NamesFrom::Project;
  if (!LoadQNPFile(loaded, Project(), around_.Hydro, around_.Screen, fileName, how)) return false;
  if (loaded.FileName.empty()) {  // nothing was there to be read
    loaded = NewQualInput(around_.Hydro, Project(), catalogue_);
    if (!isNew) loaded.FileName = fileName;
    loaded.Dirty = true;
  }
  Qual() = std::move(loaded);
  return true;
}

bool QualDesk::Open(const std::string& fileName, bool aside) {
  return Run("Initialize", [&] {
    if (open_ && !MayDropChanges()) return false;
    const bool isNew = fileName.empty() || fileName == kNewQualFile;
    catalogue_ = BuildCatalogue(around_.Screen);
    auto before = std::exchange(own_, aside ? RecordsAside(fileName, isNew) : nullptr);
    const bool loaded = Load(fileName, isNew);
    view_.ShowProgress(100);
    if (!loaded) {
      own_ = std::move(before);
      if (open_) ShowAll();  // without the changes that were given up
      return false;
    }
    view_.SetCaption(QualCaption(fileName));
    open_ = true;
    keepsBranches_ = false;
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
  ShowBranches();
}

// --- Closing and saving.

bool QualDesk::MayDropChanges() {
  if (!Qual().Dirty) return true;
  const Answer answer = AskToSaveChanges(kQualInputFile, around_.Screen);
  if (answer == Answer::Yes) return Write(false);
  if (answer == Answer::No) Qual() = asOpened_;
  return answer == Answer::No;
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

/// What the user has chosen in the project window meanwhile stands, where nothing was chosen here.
void QualDesk::FollowProjectsNames() {
  QualInput& qual = Qual();
  const ProjectData& project = Project();
  const ProjectData& before = projectAsOpened_;
  Follow(qual.LatFile, asOpened_.LatFile, project.LatFileQ, before.LatFileQ);
  Follow(qual.PowFile, asOpened_.PowFile, project.PowFileQ, before.PowFileQ);
  Follow(qual.MetFiles, asOpened_.MetFiles, project.MetFiles, before.MetFiles);
  Follow(qual.MetCount, asOpened_.MetCount, project.MetCount, before.MetCount);
  const auto count = Min(project.BCFilesQ.UpperBound(), before.BCFilesQ.UpperBound());
  for (int i = 1; i <= qual.BranchCount && i <= asOpened_.BranchCount && i <= count; ++i) {
    const BranchBCFiles& now = project.BCFilesQ[i];
    const BranchBCFiles& was = before.BCFilesQ[i];
    Follow(qual.Branches[i].USFile, asOpened_.Branches[i].USFile, now.Upstream, was.Upstream);
    Follow(qual.Branches[i].DSFile, asOpened_.Branches[i].DSFile, now.Downstream, was.Downstream);
  }
}

bool QualDesk::Write(bool saveAs) {
  QualInput& qual = Qual();
  ProjectData& project = Project();
  const std::string name =
      NameToSaveUnder(qual.FileName, qual.OnDisk, saveAs, kQualFilter, project.FileName, around_);
  if (name.empty() || !FollowNetwork() || !TakeAll()) return false;
  FollowProjectsNames();
  if (!SaveQNPFile(qual, project, around_.Screen, name)) return false;
  view_.SetCaption(QualCaption(name));
  if (std::exchange(project.QualFile, name) != name) project.Dirty = true;
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

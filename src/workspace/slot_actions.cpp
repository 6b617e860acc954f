// What the project window does with the file of a slot, and with files outside of the project.

#include <optional>
#include <utility>

#include "core/error_report.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "import/browse_file.h"
#include "model/file_names.h"
#include "model/qnp_file.h"
#include "workspace/attached_file.h"
#include "workspace/file_slots.h"
#include "workspace/project_desk.h"
#include "workspace/shell_document.h"

namespace lomaris {
namespace {

constexpr std::string_view kHydroWarning =
    "The structure of the Hydrodynamic Input file is key to correct operation of Tavresk and must "
    "be consistent with Auxiliary Files for both hydrodynamic and water quality simulations. If "
    "you have already specified Auxiliary files and then select a different Hydrodynamic Input "
    "file, it is possible that inconsistencies in the various files will occur. To be sure that "
    "inconsistencies don't exist in your files, open each auxiliary file in turn and examine them. "
    "Obvious errors (like node numbers which don't agree with cross section names) will be flagged "
    "by Lomaris, but you should also examine the files for more subtle errors (for example, depth "
    "boundary conditions which reference BCF files containing flows).";
constexpr std::string_view kQualWarning =
    "The structure of the Water Quality Input file must be similar with that of the Hydrodynamic "
    "Input file. Obvious discrepancies (such as a different numbe of branches or cross sections or "
    "mismatching cross section names) will be flagged by Lomaris, but you should also examine the "
    "file for more subtle errors.";
constexpr std::string_view kLibraryWarning =
    "The Cross Section file contains a library of cross section geometries. These may be "
    "referenced in the Hydrodynamic Input file using the cross section lookup name. Selection of "
    "an incompatible XSG file may result in references to non-existent cross sections. You should "
    "open the Hydrodynamic Input file so that Lomaris can report these obvious discrepancies.";
constexpr std::string_view kAuxiliaryWarning =
    "Auxiliary files contain references to cross sections defined in the Hydrodynamic Input file. "
    "Selection of an incompatible Auxiliary file can cause errors when running Tavresk. To be sure "
    "that inconsistencies don't exist in your files, open the auxiliary file and examine it. "
    "Obvious errors (like node numbers which don't agree with cross section names) will be flagged "
    "by Lomaris, but you should also examine the file for more subtle errors (such as MET files "
    "which don't reference the entire range of model cross sections or have overlapping "
    "references).";

constexpr std::string_view kBuildQualWarning =
    "This routine will build a new Water Quality input file using an existing Hydrodynamic input "
    "file. Simulation start and end times and cross section names are imported, and default "
    "kinetic parameters are assigned. Great care should be taken to assure that the default "
    "parameters are appropriate to this modeling situation.\r\n\r\n"
    "Note that this new created file will NOT be automatically referenced in your Project file; if "
    "you want to use it, you'll have to manually select it.";

std::string RowOf(const SlotList& list) {
  return list.Selected < 0 ? std::string() : list.Rows[static_cast<std::size_t>(list.Selected)];
}

/// What the slot shows: the text, or the selected row of the list.
std::string ShownIn(const ProjectForm& form, std::size_t slot) {
  return kFileSlots[slot].IsList() ? RowOf(form.Lists[slot]) : form.Texts[slot];
}

/// The file that the slot names; empty for none.
std::string NameIn(const ProjectForm& form, std::size_t slot) {
  const std::string shown = ShownIn(form, slot);
  if (shown.empty()) return {};
  if (IsBoundarySlot(slot)) return ParseBoundaryRow(shown).FileName;
  return NamesAFile(shown) ? shown : std::string();
}

/// The place of an input file's kind among the slots, whose filters are in the same order.
std::size_t SlotOfKind(std::string_view kind) {
  std::size_t slot = 0;
  while (kFileSlots[slot].Kind != kind) ++slot;
  return slot;
}

}  // namespace

bool ProjectDesk::OffersEditor(std::string_view kind) const {
  return around_.Windows.OffersEditor(std::string(kind));
}

bool ProjectDesk::OffersEdit(const ProjectForm& form, std::size_t slot) const {
  const bool named =
      kFileSlots[slot].IsList() ? !form.Lists[slot].Rows.empty() : NamesAFile(form.Texts[slot]);
  return named && OffersEditor(kFileSlots[slot].Kind);
}

EditRequest ProjectDesk::RequestFor(const ProjectForm& form, std::size_t slot) const {
  EditRequest request{.Kind = std::string(kFileSlots[slot].Kind), .Slot = static_cast<int>(slot)};
  const SlotList& list = form.Lists[slot];
  if (IsBoundarySlot(slot) && list.Selected >= 0) {
    const BoundaryRow row = ParseBoundaryRow(RowOf(list));
    request.Row = row.Branch;
    request.IsUpstream = row.IsUpstream;
  } else if (slot == kMetSlot) {
    request.Row = list.Selected + 1;
  }
  return request;
}

void ProjectDesk::EditInSlot(const EditRequest& request) {
  SaveForm();
  view_.FocusSlot(static_cast<std::size_t>(request.Slot));
  around_.Windows.FileEdit(request);
  LoadForm();
}

void ProjectDesk::EditSlot(std::size_t slot) {
  Run("btnBrowse_Click", [&] {
    const ProjectForm form = view_.Form();
    EditRequest request = RequestFor(form, slot);
    request.FileName = NameBeforeRemark(NameIn(form, slot), around_.Project.FileName);
    if (!request.FileName.empty() && !FindFile(request.FileName, around_.Project.FileName)) {
      around_.Screen.ShowMessage({.Text = "File has not been specified or does not exist:\r\n\r\n" +
                                          request.FileName +
                                          "\r\n\r\nPlease specify path to an existing file.",
                                  .Title = "Error",
                                  .BoxIcon = Icon::Critical});
      return;
    }
    EditInSlot(request);
  });
}

/// False when the user does not want to go on.
bool ProjectDesk::WarnBeforeSelecting(std::size_t slot) {
  Warning warning = Warning::OtherAuxiliary;
  std::string_view text = kAuxiliaryWarning;
  if (slot == kHydroSlot) {
    warning = Warning::Hydro;
    text = kHydroWarning;
  } else if (slot == kQualSlot) {
    warning = Warning::Qual;
    text = kQualWarning;
  } else if (slot == kLibrarySlot) {
    warning = Warning::Library;
    text = kLibraryWarning;
  }
  bool& warned = warned_[static_cast<std::size_t>(warning)];
  if (std::exchange(warned, true)) return true;
  return around_.Screen.ShowMessage({.Text = std::string(text) + "\r\n\r\nDo you want to continue?",
                                     .Title = "Warning",
                                     .BoxIcon = Icon::Warning,
                                     .BoxButtons = Buttons::OkCancel}) == Answer::Ok;
}

void ProjectDesk::SelectExisting(std::size_t slot) {
  Run("mnuOpenItem_Click", [&] {
    if (!WarnBeforeSelecting(slot)) return;
    ProjectForm form = view_.Form();
    if (kFileSlots[slot].IsList() && form.Lists[slot].Selected < 0) {
      around_.Screen.ShowMessage({.Text = "You must initially specify BCF and MET files using the "
                                          "HNP and/or QNP editors."});
      return;
    }
    BrowseRequest request{
        .Filter = around_.SharedTables.FileFilter[static_cast<std::int64_t>(slot)],
        .Title = "Select Existing File",
        .FileName = NameIn(form, slot)};
    const std::vector<std::string> chosen = BrowseFiles(request, around_.Screen, around_.Store);
    if (chosen.empty()) return;
    PutIntoSlot(form, slot, chosen.front());
    ShowChanged(form);
    EditRequest attached = RequestFor(form, slot);
    attached.FileName = chosen.front();
    LookAtAttachedFile(attached, around_.Hydro, around_.Project, around_.SharedTables,
                       around_.Screen);
  });
}

void ProjectDesk::PutIntoSlot(ProjectForm& form, std::size_t slot, const std::string& name) {
  if (!kFileSlots[slot].IsList()) {
    form.Texts[slot] = name;
    return;
  }
  std::string& row = form.Lists[slot].Rows[static_cast<std::size_t>(form.Lists[slot].Selected)];
  if (IsBoundarySlot(slot)) {
    BoundaryRow changed = ParseBoundaryRow(row);
    changed.FileName = name;
    row = BoundaryRowText(changed);
  } else {
    row = name;
  }
}

void ProjectDesk::ShowChanged(const ProjectForm& form) {
  view_.ShowForm(form, !around_.Project.FileName.empty());
  MarkDirty();
  SaveForm();
}

void ProjectDesk::CreateEmpty(std::size_t slot) {
  Run("mnuOpenItem_Click", [&] {
    const EditRequest request = RequestFor(view_.Form(), slot);
    MarkDirty();
    EditInSlot(request);
  });
}

void ProjectDesk::RemoveFile(std::size_t slot) {
  Run("mnuOpenItem_Click", [&] {
    ProjectForm form = view_.Form();
    form.Texts[slot] = kNotSpecified;
    ShowChanged(form);
  });
}

void ProjectDesk::CreateInputFile(std::size_t index) {
  Run("mnuFileCreateItem_Click", [&] {
    SaveForm();
    const std::string kind(kInputFileKinds[index]);
    if (kind == "QNP" && NamesAFile(around_.Project.HydroFile)) return BuildQNP();
    around_.Windows.FileEdit({.Kind = kind, .Aside = kind == "HNP"});
    LoadForm();
  });
}

/// The project goes on naming the file that it names: what is built is opened aside.
void ProjectDesk::BuildQNP() {
  Run("BuildQNP", [&] {
    const Answer answer = around_.Screen.ShowMessage({.Text = std::string(kBuildQualWarning),
                                                      .Title = "Build Water Quality Input File",
                                                      .BoxButtons = Buttons::OkCancel});
    if (answer != Answer::Ok) return;
    SaveForm();
    around_.Windows.FileEdit({.FileName = std::string(kNewQualFile), .Aside = true});
  });
}

void ProjectDesk::OpenInputFile(std::size_t index) {
  Run("mnuFileOpenItem_Click", [&] {
    SaveForm();
    const std::string_view kind = kInputFileKinds[index];
    BrowseRequest request{
        .Filter = around_.SharedTables.FileFilter[static_cast<std::int64_t>(SlotOfKind(kind))],
        .Title = "Open"};
    const std::vector<std::string> chosen = BrowseFiles(request, around_.Screen, around_.Store);
    if (chosen.empty()) return;
    const ProjectData& project = around_.Project;
    const bool ofProject = SameFile(project.HydroFile, chosen.front(), project.FileName) ||
                           SameFile(project.QualFile, chosen.front(), project.FileName);
    around_.Windows.FileEdit(
        {.FileName = chosen.front(), .Aside = (kind == "HNP" || kind == "QNP") && !ofProject});
  });
}

void ProjectDesk::OpenOutputFile(std::size_t index) {
  Run("mnuFileOutputItem_Click", [&] {
    SaveForm();
    if (index == 1) return ShowOutput(around_.Project.HydroFile, "HNP");
    if (index == 2) return ShowOutput(around_.Project.QualFile, "QNP");
    BrowseRequest request{.Filter = around_.SharedTables.FileFilter[kBinaryFilter],
                          .Title = "Open"};
    const std::vector<std::string> chosen = BrowseFiles(request, around_.Screen, around_.Store);
    if (!chosen.empty()) around_.Windows.FileEdit({.FileName = chosen.front()});
  });
}

/// The output lies beside the input under its name with "out" in place of the type. The replacement
/// works on the whole path, so a directory whose name holds those letters changes too:
/// installations keep their results in such a directory.
void ProjectDesk::ShowOutput(std::string path, std::string_view kind) {
  path = ReplaceAll(UpperCase(path), kind, "out");
  const std::optional<std::string> found = FindFile(path, around_.Project.FileName);
  if (!found) {
    around_.Screen.ShowMessage({.Text = "Unable to find output file named " + path,
                                .Title = "Lomaris",
                                .BoxIcon = Icon::Critical});
    return;
  }
  TellShellFailure(around_.Desktop.OpenText(*found), *found, around_.Screen);
}

}  // namespace lomaris

#include "workspace/project_desk.h"

#include <utility>

#include <fmt/format.h>

#include "core/error_report.h"
#include "core/files.h"
#include "core/program.h"
#include "core/save_file.h"
#include "core/text.h"
#include "import/browse_file.h"
#include "model/file_names.h"
#include "model/network_in_memory.h"
#include "model/prj_file.h"
#include "workspace/found_files.h"
#include "workspace/global_replace.h"
#include "workspace/shell_document.h"

namespace lomaris {
namespace {

constexpr const char* kWebSite = "https://www.tavresk.example/";
constexpr const char* kTechSupport = "mailto:support@tavresk.example";

}  // namespace

ProjectDesk::ProjectDesk(const DeskSurroundings& around, ProjectView& view)
    : around_(around), view_(view) {}

void ProjectDesk::Run(const char* routine, const std::function<void()>& action) {
  Trap(around_.Screen, routine, "Form", "frmProject").Run(action);
}

bool ProjectDesk::RunAction(const char* routine, const std::function<bool()>& action) {
  bool done = false;
  Run(routine, [&] { done = action(); });
  return done;
}

void ProjectDesk::Start() {
  Run("Form_Load", [&] {
    recent_.LoadMRU(around_.Store);
    view_.ShowRecent(recent_.Names());
    LoadForm();
    around_.Project.Dirty = false;
  });
}

void ProjectDesk::LoadForm() {
  Run("LoadForm", [&] {
    const ProjectForm form = FormOf(around_.Project, around_.Screen);
    StoreOtherFiles(form, around_.Project);  // what is gone has been told, once
    view_.ShowForm(form, !around_.Project.FileName.empty());
  });
}

bool ProjectDesk::SaveForm() {
  return RunAction("SaveForm", [&] {
    StoreForm(view_.Form(), around_.Project);
    return true;
  });
}

/// The record follows each edit, so that an editor's refresh of the window loses none.
void ProjectDesk::FieldEdited() {
  MarkDirty();
  SaveForm();
}

void ProjectDesk::MarkDirty() {
  around_.Project.Dirty = true;
}

bool ProjectDesk::SaveFirst() {
  if (!around_.Project.Dirty) return true;
  const Answer answer = AskToSaveChanges("Project", around_.Screen);
  if (answer == Answer::Yes) return WriteProject(false);
  return answer == Answer::No;
}

/// An editor that saves its file on the way may put names into the project: what was asked about
/// before is asked about again then.
bool ProjectDesk::OthersClosed() {
  const ProjectData before = around_.Project;
  return NothingElseOpen() && (around_.Project == before || SaveFirst());
}

bool ProjectDesk::NothingElseOpen() {
  return view_.MayLeaveProject() && around_.Windows.CloseOtherWindows();
}

/// Whether the project may make room for another one, or for none.
bool ProjectDesk::Replaceable() {
  return view_.MayLeaveProject() && SaveFirst() && OthersClosed();
}

bool ProjectDesk::LoadProject(const std::string& fileName) {
  ProjectData& project = around_.Project;
  if (!LoadPRJFile(project, around_.Screen, fileName)) {
    nameNotLoaded_ = fileName;
    return false;
  }
  nameNotLoaded_.clear();
  nameOnDisk_ = project.FileName;
  MoveToFolderOf(fileName);
  // The network in memory belongs to the former project; no file of this one may be read with it.
  around_.Hydro = HydroInput();
  LoadForm();
  view_.ShowFilesTab();
  project.Dirty = false;
  ShowCaption();
  return true;
}

void ProjectDesk::ShowCaption() {
  const std::string caption = view_.Caption();
  const std::size_t dash = caption.find('-');
  const std::string head = dash == std::string::npos ? caption + " -" : caption.substr(0, dash + 1);
  view_.SetCaption(head + " " + around_.Project.FileName);
}

bool ProjectDesk::Open() {
  return RunAction("mnuFileOpen_Click", [&] {
    if (!view_.MayLeaveProject() || !SaveFirst()) return false;
    BrowseRequest request{.Filter = around_.SharedTables.FileFilter[kProjectFilter],
                          .Title = "Open"};
    const std::vector<std::string> chosen = BrowseFiles(request, around_.Screen, around_.Store);
    return !chosen.empty() && OthersClosed() && OpenChosen(chosen.front());
  });
}

bool ProjectDesk::OpenProject(const std::string& fileName) {
  return RunAction("mnuFileOpen_Click", [&] { return Replaceable() && OpenChosen(fileName); });
}

bool ProjectDesk::OpenChosen(const std::string& fileName) {
  if (!LoadProject(fileName)) return false;
  recent_.AddToMRU(fileName);
  KeepRecent();
  return true;
}

bool ProjectDesk::OpenRecent(std::size_t index) {
  return RunAction("mnuFileMRU_Click", [&] {
    if (index >= recent_.Names().size()) return false;
    const std::string name = recent_.Names()[index];  // a save on the way may move the list
    if (!Replaceable()) return false;
    const bool loaded = LoadProject(name);
    recent_.AddToMRU(name);
    KeepRecent();
    return loaded;
  });
}

bool ProjectDesk::SaveProject(bool saveAs) {
  return RunAction("SaveProject", [&] { return WriteProject(saveAs); });
}

/// Empty when the user does not want to save after all.
std::string ProjectDesk::NameToSaveUnder(bool saveAs) {
  const std::string& name = around_.Project.FileName;
  const bool moved = name != nameOnDisk_;
  const bool ask =
      saveAs || !nameNotLoaded_.empty() || name.empty() || (moved && !FolderExists(name));
  if (!ask) return !moved || MayOverwrite(name) ? name : std::string();
  const std::string& proposal = nameNotLoaded_.empty() ? name : nameNotLoaded_;
  return SaveFile(around_.SharedTables.FileFilter[kProjectFilter],
                  proposal.empty() ? "*.prj" : proposal, 0, "Save As", name, around_.Screen,
                  around_.Store);
}

/// Whether a name that a replacement has made may be saved under: a file that stands there already
/// is another project, or an older state of this one.
bool ProjectDesk::MayOverwrite(const std::string& name) {
  if (!FindFile(name)) return true;
  return around_.Screen.ShowMessage(
             {.Text = name + " already exists.\r\nDo you want to replace it?",
              .Title = "Save As",
              .BoxIcon = Icon::Warning,
              .BoxButtons = Buttons::YesNo,
              .DefaultAnswer = Answer::No}) == Answer::Yes;
}

bool ProjectDesk::WriteProject(bool saveAs) {
  ProjectData& project = around_.Project;
  if (!SaveForm()) return false;
  const FoundFiles before = FilesFoundBy(project, nameOnDisk_);
  const std::string name = NameToSaveUnder(saveAs);
  // Names without a folder mean other files from there: nothing stays open under them.
  const bool moves =
      !name.empty() &&
      (nameOnDisk_.empty() || FolderOf(TargetPath(name)) != FolderOf(TargetPath(nameOnDisk_)));
  if (name.empty() || (moves && !NothingElseOpen())) return false;
  if (!SavePRJFile(project, around_.Screen, name)) return false;
  if (moves) around_.Hydro = HydroInput();
  project.FileName = name;
  nameNotLoaded_.clear();
  ShowCaption();
  if (std::exchange(nameOnDisk_, name) == name) return true;
  MoveToFolderOf(name);
  recent_.AddToMRU(name);
  KeepRecent();
  TellOfOtherFilesFound(before, FilesFoundBy(project, name), around_.Screen);
  return true;
}

void ProjectDesk::KeepRecent() {
  recent_.SaveMRU(around_.Store);
  view_.ShowRecent(recent_.Names());
}

bool ProjectDesk::Close() {
  return RunAction("mnuFileClose_Click", [&] {
    if (!Replaceable()) return false;
    around_.Project = ProjectData();
    around_.Hydro = HydroInput();
    nameNotLoaded_.clear();
    nameOnDisk_.clear();
    LoadForm();
    around_.Project.Dirty = false;
    view_.SetCaption(std::string(kApplicationTitle));
    return true;
  });
}

bool ProjectDesk::QueryUnload() {
  return RunAction("Form_QueryUnload", [&] { return Replaceable(); });
}

void ProjectDesk::Replace() {
  Run("mnuEditItem_Click", [&] {
    // Editors would put the names that they have back into the project.
    const auto mayReplace = [this] { return NothingElseOpen(); };
    if (!view_.MayLeaveProject() || !SaveForm()) return;
    if (!GlobalReplace(around_.Project, around_.Screen, mayReplace)) return;
    around_.Hydro = HydroInput();
    MarkDirty();
    LoadForm();
    ShowCaption();
  });
}

void ProjectDesk::BrowseOtherFiles() {
  Run("tbFileList_ButtonClick", [&] {
    BrowseRequest request{.Filter = "All files (*.*)|*.*", .Title = "Open", .MultiSelect = true};
    AddOtherFiles(BrowseFiles(request, around_.Screen, around_.Store));
  });
}

void ProjectDesk::AddOtherFiles(const std::vector<std::string>& paths) {
  Run("AddOtherFile", [&] {
    ProjectForm form = view_.Form();
    bool added = false;
    bool full = false;
    for (const std::string& path : paths) {
      const OtherFileEnd end = AddOtherFile(form, path);
      added = added || end == OtherFileEnd::Added;
      full = full || end == OtherFileEnd::ListIsFull;
    }
    if (added) ShowChanged(form);
    if (full) {
      around_.Screen.ShowMessage({.Text = fmt::format("The list is full: a project has at most {} "
                                                      "other files.",
                                                      kMostOtherFiles)});
    }
  });
}

void ProjectDesk::CloseOtherFile(std::size_t row) {
  Run("tbFileList_ButtonClick", [&] {
    ProjectForm form = view_.Form();
    if (row >= form.OtherFiles.size()) return;
    form.OtherFiles.erase(form.OtherFiles.begin() + static_cast<std::ptrdiff_t>(row));
    ShowChanged(form);
  });
}

void ProjectDesk::RunOtherFile(std::size_t row) {
  Run("lvFileList_DblClick", [&] {
    const ProjectForm form = view_.Form();
    if (row >= form.OtherFiles.size()) return;
    const std::string& path = form.OtherFiles[row];
    ShellDocument(FindFile(path, around_.Project.FileName).value_or(path), around_.Desktop,
                  around_.Screen);
  });
}

std::string ProjectDesk::LoadNetwork() {
  std::string text = "There is no network to draw: the project names no hydrodynamic input file.";
  Run("SSTabMain_Click", [&] {
    SaveForm();
    HydroInput& hydro = around_.Hydro;
    const std::string& name = around_.Project.HydroFile;
    if (!NamesAFile(name)) return;
    text = "The network could not be read from " + name + ".";
    if (lomaris::LoadNetwork(hydro, around_.Project, around_.Screen, around_.Windows) !=
        NetworkState::Loaded) {
      return;
    }
    text = fmt::format("{}: {} branches, {} cross sections.\nThe network is not drawn yet.",
                       hydro.FileName, hydro.BranchCount, hydro.XSectCount);
  });
  return text;
}

void ProjectDesk::OpenWebSite() {
  ShellDocument(kWebSite, around_.Desktop, around_.Screen);
}

void ProjectDesk::MailTechSupport() {
  ShellDocument(kTechSupport, around_.Desktop, around_.Screen);
}

}  // namespace lomaris

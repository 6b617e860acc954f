#include "workspace/project_desk.h"

#include <fmt/format.h>

#include "core/error_report.h"
#include "core/files.h"
#include "core/save_file.h"
#include "core/text.h"
#include "import/browse_file.h"
#include "model/hnp_file.h"
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
    view_.ShowForm(FormOf(around_.Project, around_.Screen), !around_.Project.FileName.empty());
  });
}

void ProjectDesk::SaveForm() {
  Run("SaveForm", [&] { StoreForm(view_.Form(), around_.Project); });
}

void ProjectDesk::MarkDirty() {
  around_.Project.Dirty = true;
}

bool ProjectDesk::SaveFirst() {
  if (!around_.Project.Dirty) return true;
  const Answer answer = around_.Screen.ShowMessage({.Text = "Save changes to Project?",
                                                    .Title = "Lomaris",
                                                    .BoxIcon = Icon::Question,
                                                    .BoxButtons = Buttons::YesNoCancel});
  if (answer == Answer::Yes) return WriteProject(false);
  return answer == Answer::No;
}

/// Whether the project may make room for another one, or for none.
bool ProjectDesk::Replaceable() {
  return SaveFirst() && around_.Windows.CloseOtherWindows();
}

bool ProjectDesk::LoadProject(const std::string& fileName) {
  ProjectData& project = around_.Project;
  nameNotLoaded_ = !LoadPRJFile(project, around_.Screen, fileName);
  if (nameNotLoaded_) {
    project.FileName = fileName;
    return false;
  }
  MoveToFolderOf(fileName);
  // The network in memory belongs to the former project; no file of this one may be read with it.
  around_.Hydro = HydroInput();
  LoadForm();
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
    BrowseRequest request{.Filter = around_.SharedTables.FileFilter[kProjectFilter],
                          .Title = "Open"};
    const std::vector<std::string> chosen = BrowseFiles(request, around_.Screen, around_.Store);
    return !chosen.empty() && OpenProject(chosen.front());
  });
}

bool ProjectDesk::OpenProject(const std::string& fileName) {
  return RunAction("mnuFileOpen_Click", [&] {
    if (!Replaceable() || !LoadProject(fileName)) return false;
    recent_.AddToMRU(fileName);
    KeepRecent();
    return true;
  });
}

bool ProjectDesk::OpenRecent(std::size_t index) {
  return RunAction("mnuFileMRU_Click", [&] {
    if (index >= recent_.Names().size() || !Replaceable()) return false;
    const bool loaded = LoadProject(std::string(recent_.Names()[index]));
    recent_.MoveMRUToTop(index);
    KeepRecent();
    return loaded;
  });
}

bool ProjectDesk::SaveProject(bool saveAs) {
  return RunAction("SaveProject", [&] { return WriteProject(saveAs); });
}

bool ProjectDesk::WriteProject(bool saveAs) {
  ProjectData& project = around_.Project;
  StoreForm(view_.Form(), project);
  const FoundFiles before = FilesFoundBy(project);
  std::string name = project.FileName;
  const bool ask = saveAs || nameNotLoaded_ || name.empty();
  if (ask) {
    name = SaveFile(around_.SharedTables.FileFilter[kProjectFilter], "*.prj", 0, "Save As", name,
                    around_.Screen, around_.Store);
    if (name.empty()) return false;
  }
  if (!SavePRJFile(project, around_.Screen, name)) return false;
  project.FileName = name;
  nameNotLoaded_ = false;
  if (!ask) return true;
  ShowCaption();
  recent_.AddToMRU(name);
  KeepRecent();
  TellOfOtherFilesFound(before, FilesFoundBy(project), around_.Screen);
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
    nameNotLoaded_ = false;
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
    StoreForm(view_.Form(), around_.Project);
    if (!GlobalReplace(around_.Project, around_.Screen)) return;
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
    for (const std::string& path : paths) added = AddOtherFile(form, path) || added;
    if (added) ShowChanged(form);
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
    ShellDocument(form.OtherFiles[row], around_.Desktop, around_.Screen);
  });
}

std::string ProjectDesk::LoadNetwork() {
  std::string text = "There is no network to draw: the project names no hydrodynamic input file.";
  Run("SSTabMain_Click", [&] {
    SaveForm();
    HydroInput& hydro = around_.Hydro;
    const std::string& name = around_.Project.HydroFile;
    if (NormaliseFileName(name, true) == kNotSpecified) return;
    // Changes that wait in the editor are not read over.
    if (!hydro.Dirty && !LoadHNPFile(hydro, around_.Project, around_.Screen, name)) {
      text = "The network could not be read from " + name + ".";
    } else {
      text = fmt::format("{}: {} branches, {} cross sections.\nThe network is not drawn yet.",
                         hydro.FileName, hydro.BranchCount, hydro.XSectCount);
    }
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

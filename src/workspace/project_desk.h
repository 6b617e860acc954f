#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/ports/settings.h"
#include "core/ports/shell.h"
#include "core/ports/ui.h"
#include "core/ports/workbench.h"
#include "core/tables.h"
#include "model/hydro_input.h"
#include "model/project_data.h"
#include "workspace/project_view.h"
#include "workspace/recent_files.h"

namespace lomaris {

/// What the project window works on and speaks through. All of it outlives the desk.
struct DeskSurroundings {
  ProjectData& Project;
  HydroInput& Hydro;
  const Tables& SharedTables;
  Ui& Screen;
  Settings& Store;
  Shell& Desktop;
  Workbench& Windows;
};

/// Items of the menus Create, Build and Open Input File, by their index; empty for the separator.
inline constexpr std::array<std::string_view, 9> kInputFileKinds = {
    "HNP", "QNP", "XSG", "", "LAT", "WIT", "BCF", "POW", "MET"};

/// The logic of the project window: what its menus and buttons do. Every action is a routine of
/// its own whose failure is reported under its name.
class ProjectDesk {
 public:
  ProjectDesk(const DeskSurroundings& around, ProjectView& view);

  /// Reads the recent projects and shows a window without a project.
  void Start();

  /// Between the record and the window.
  void LoadForm();
  /// False: the record could not take what the window shows.
  bool SaveForm();

  /// The user has changed a field.
  void FieldEdited();

  // --- Projects. False: the action was stopped, by the user or by a failure.
  bool Open();
  bool OpenProject(const std::string& fileName);
  bool OpenRecent(std::size_t index);
  bool SaveProject(bool saveAs);
  bool Close();

  /// Asks about unsaved changes and closes the other windows. False: the window is to stay.
  bool QueryUnload();

  // --- File slots.
  /// Whether the slot's file, as `form` shows it, can be opened in an editor.
  bool OffersEdit(const ProjectForm& form, std::size_t slot) const;
  bool OffersEditor(std::string_view kind) const;

  void EditSlot(std::size_t slot);
  void SelectExisting(std::size_t slot);
  void CreateEmpty(std::size_t slot);
  void RemoveFile(std::size_t slot);

  // --- Menus. `index` is that of the menu item.
  void CreateInputFile(std::size_t index);
  /// Builds a water quality input from the network.
  void BuildQNP();
  void OpenInputFile(std::size_t index);
  void OpenOutputFile(std::size_t index);
  void Replace();

  // --- Other files.
  void BrowseOtherFiles();
  void AddOtherFiles(const std::vector<std::string>& paths);
  void CloseOtherFile(std::size_t row);
  void RunOtherFile(std::size_t row);

  /// Reads the network that the project names, for the diagram. The text says what there is to see.
  std::string LoadNetwork();

  void OpenWebSite();
  void MailTechSupport();

 private:
  enum class Warning { Hydro, Qual, Library, OtherAuxiliary };
  static constexpr std::size_t kWarningCount = 4;

  void Run(const char* routine, const std::function<void()>& action);
  bool RunAction(const char* routine, const std::function<bool()>& action);

  bool SaveFirst();
  bool NothingElseOpen();
  bool OthersClosed();
  bool Replaceable();
  bool LoadProject(const std::string& fileName);
  bool OpenChosen(const std::string& fileName);
  std::string NameToSaveUnder(bool saveAs);
  bool MayOverwrite(const std::string& name);
  void MarkDirty();
  bool WriteProject(bool saveAs);
  void ShowCaption();
  void KeepRecent();

  bool WarnBeforeSelecting(std::size_t slot);
  EditRequest RequestFor(const ProjectForm& form, std::size_t slot) const;
  void EditInSlot(const EditRequest& request);
  void PutIntoSlot(ProjectForm& form, std::size_t slot, const std::string& name);
  void ShowChanged(const ProjectForm& form);
  void ShowOutput(std::string path, std::string_view kind);

  DeskSurroundings around_;
  ProjectView& view_;
  RecentFiles recent_;
  std::array<bool, kWarningCount> warned_{};  ///< each warning is shown once per session

  /// The name under which the project was read or written last; a replacement may change the one in
  /// the record.
  std::string nameOnDisk_;

  /// The file of a load that failed; empty when it did not. It is the name that the next save
  /// proposes, and asks for: that file holds something else, and the dialog asks once more before
  /// it is overwritten. Until then the names of the project keep their meaning beside the former
  /// file.
  std::string nameNotLoaded_;
};

}  // namespace lomaris

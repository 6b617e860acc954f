// What follows from a section's new name: the network in memory looks it up.

#include <algorithm>
#include <utility>

#include "core/files.h"
#include "core/raised_flag.h"
#include "editors/library_desk.h"
#include "editors/lookup_names.h"
#include "editors/typed_values.h"
#include "model/network_in_memory.h"

namespace lomaris {

/// The network's look-ups have followed in memory. Nobody else would ask to save them; and those of
/// the library that the project names are not to follow a copy of it. False: the network is to be
/// saved, and is not.
bool LibraryDesk::SaveRenames() {
  if (renames_.empty()) return true;
  const bool isCopy =
      !IsProjects(library_.FileName) && std::ranges::any_of(renames_, &Renamed::OfProject);
  if (!isCopy) {
    renames_.clear();
    return SaveNetworkOfNobody();
  }
  around_.Screen.ShowMessage(
      {.Text = "The project names the cross section library " + FileIn(around_.Project.XSGFileH) +
               ", which keeps the old names of the renamed cross sections; so does the "
               "hydrodynamic input file.",
       .Title = "Warning",
       .BoxIcon = Icon::Warning});
  TakeRenamesBack(false);
  return true;
}

bool LibraryDesk::IsProjects(const std::string& fileName) const {
  const ProjectData& project = around_.Project;
  return SameFile(fileName, FileIn(project.XSGFileH), project.FileName);
}

/// A look-up of a name that two sections have would find the first.
bool LibraryDesk::IsTaken(const std::string& name) const {
  return std::ranges::any_of(library_.XSects,
                             [&](const LibrarySection& each) { return each.Name == name; });
}

/// Whether a network is there to follow a section's new name. Another library may be renamed in
/// without a thought of the project's network.
bool LibraryDesk::NetworkIsWanted() {
  Ui& ui = around_.Screen;
  const std::string projects = FileIn(around_.Project.XSGFileH);
  const bool wanted =
      projects.empty() || IsProjects(library_.FileName) ||
      ui.ShowMessage({.Text = "This is not the cross section library of the project, which is " +
                              projects +
                              ".\r\n\r\nDo you want the hydrodynamic input file to look up the "
                              "new name all the same?",
                      .Title = "Warning",
                      .BoxIcon = Icon::Warning,
                      .BoxButtons = Buttons::YesNo,
                      .DefaultAnswer = Answer::No}) == Answer::Yes;
  if (!wanted) return false;
  const NetworkState state = LoadNetwork(around_.Hydro, around_.Project, ui, around_.Windows);
  if (state != NetworkState::Loaded) {
    ui.ShowMessage({.Text = "Unable to load hydrodynamic file named \"" +
                            FileIn(around_.Project.HydroFile) +
                            "\". XSG library references will not be updated."});
  }
  return state == NetworkState::Loaded;
}

void LibraryDesk::RenameInNetwork(const std::string& from, const std::string& to) {
  HydroInput& hydro = around_.Hydro;
  if (renames_.empty()) networkWasSaved_ = !hydro.Dirty;
  const bool isNew = !LooksUp(hydro, to);
  std::vector<std::string> xsects = RenameLookups(hydro, from, to);
  if (!xsects.empty()) hydro.Dirty = true;
  around_.Windows.LookupsRenamed(from, to, {});
  if (xsects.empty()) return;
  if (isNew) xsects.clear();
  renames_.push_back(
      {from, to, hydro.FileName, hydro.OnDisk, std::move(xsects), IsProjects(library_.FileName)});
}

/// `wasSaved`: the network was as on disk before all renames, and is so again behind them. One that
/// was given up unsaved, or saved under another name, has left its file with the old name.
void LibraryDesk::TakeBack(const Renamed& renamed, bool wasSaved) {
  HydroInput& hydro = around_.Hydro;
  const auto& [from, to, network, onDisk, xsects, ofProject] = renamed;
  if (hydro.FileName != network) {
    const bool isSavedAs = LooksUp(hydro, to);
    if (!isSavedAs && StampOf(network, around_.Project.FileName) == onDisk) return;
    around_.Screen.ShowMessage(
        {.Text = "Hydrodynamic input file " + (isSavedAs ? hydro.FileName : network) +
                 " looks up cross section " + to + ", which the library on disk has as " + from +
                 "; please correct one of them.",
         .Title = "Warning",
         .BoxIcon = Icon::Warning});
    return;
  }
  if (!RenameLookups(hydro, to, from, xsects).empty()) hydro.Dirty = !wasSaved;
  around_.Windows.LookupsRenamed(to, from, xsects);
}

/// The library that is given up keeps its old names on disk, and so must the look-ups. Not `all`:
/// names that a library beside the project's was asked about stay.
void LibraryDesk::TakeRenamesBack(bool all) {
  const bool noneStays = all || std::ranges::all_of(renames_, &Renamed::OfProject);
  const bool wasSaved = networkWasSaved_ && noneStays && !renames_.empty() &&
                        around_.Hydro.OnDisk == renames_.front().OnDisk;
  for (; !renames_.empty(); renames_.pop_back()) {
    if (all || renames_.back().OfProject) TakeBack(renames_.back(), wasSaved);
  }
  SaveNetworkOfNobody();
}

/// Asks about a network that has unsaved changes and no window that would ask. Without them it is
/// in use still.
bool LibraryDesk::SaveNetworkOfNobody() {
  if (around_.Windows.EditsNetwork()) return true;
  HydroInput& hydro = around_.Hydro;
  const std::string name = hydro.FileName;
  const bool saved = SaveNetworkFirst(hydro, around_.Project, around_.Screen);
  if (hydro.FileName != name) RereadNetwork(hydro, around_.Project, around_.Screen, name);
  around_.Windows.RefreshProjectWindow();
  return saved;
}

void LibraryDesk::Rename() {
  if (number_ == 0) return;
  Run("btnRename_Click", [&] {
    LibrarySection& section = library_.XSects[number_];
    if (!Agreed("Are you sure you want to rename the currently selected cross section " +
                section.Name + "?")) {
      return false;
    }
    const std::optional<SectionName> asked =
        AskedName("Rename Cross Section", {section.Name, view_.Description()});
    if (!asked) return false;
    if (asked->Name != section.Name && NetworkIsWanted()) {
      RenameInNetwork(section.Name, asked->Name);
    }
    section.Name = asked->Name;
    const RaisedFlag ownChange(showing_);
    view_.ShowDescription(asked->Description);
    ShowList();
    library_.Dirty = true;
    return true;
  });
}

}  // namespace lomaris

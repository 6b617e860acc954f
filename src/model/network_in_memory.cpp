#include "model/network_in_memory.h"

#include "core/files.h"
#include "core/save_file.h"
#include "model/hnp_file.h"
#include "model/input_file.h"

namespace lomaris {
namespace {

void TakeProjectsNames(HydroInput& hydro, const ProjectData& project) {
  hydro.LatFile = project.LatFileH;
  hydro.WitFile = project.WitFileH;
  hydro.XSGFile = project.XSGFileH;
  for (int i = 1; i <= hydro.BranchCount && i <= project.BCFilesH.Count(); ++i) {
    hydro.Branches[i].USFile = project.BCFilesH[i].Upstream;
    hydro.Branches[i].DSFile = project.BCFilesH[i].Downstream;
  }
}

/// The names of a network that the project no longer names do not go into it.
bool Save(HydroInput& hydro, ProjectData& project, Ui& ui) {
  if (!MayOverwrite(hydro.FileName, hydro.OnDisk, project.FileName, ui)) return false;
  ProjectData other = project;
  const bool ofProject = SameFile(hydro.FileName, project.HydroFile, project.FileName);
  if (ofProject) TakeProjectsNames(hydro, project);
  return SaveHNPFile(hydro, ofProject ? project : other, ui, hydro.FileName);
}

}  // namespace

NetworkState LoadNetwork(HydroInput& hydro, ProjectData& project, Ui& ui, Workbench& windows) {
  if (!FindFile(project.HydroFile, project.FileName)) {
    return hydro.HydroLoaded ? NetworkState::Loaded : NetworkState::Missing;
  }
  if (hydro.HydroLoaded && SameFile(hydro.FileName, project.HydroFile, project.FileName)) {
    return NetworkState::Loaded;
  }
  if (!windows.ReleaseNetwork()) return NetworkState::Kept;
  const bool loaded = LoadHNPFile(hydro, project, ui, project.HydroFile) && hydro.HydroLoaded;
  return loaded ? NetworkState::Loaded : NetworkState::Missing;
}

bool SaveNetworkFirst(HydroInput& hydro, ProjectData& project, Ui& ui) {
  if (!hydro.Dirty) return true;
  const Answer answer = AskToSaveChanges(kNetworkFile, ui);
  if (answer == Answer::Yes) return Save(hydro, project, ui);
  if (answer == Answer::No) hydro = HydroInput();
  return answer == Answer::No;
}

void RereadNetwork(HydroInput& hydro, ProjectData& project, Ui& ui, const std::string& name) {
  hydro = HydroInput();
  if (FindFile(name, project.FileName)) LoadHNPFile(hydro, project, ui, name);
}

}  // namespace lomaris

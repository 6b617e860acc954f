#include "workspace/attached_file.h"

#include <algorithm>
#include <array>
#include <optional>

#include "auxiliary/aux_file.h"
#include "core/files.h"
#include "model/hnp_file.h"
#include "workspace/file_slots.h"

namespace lomaris {
namespace {

constexpr std::array<std::string_view, 5> kTimeSeries = {"LAT", "WIT", "POW", "BCF", "MET"};

bool IsTimeSeries(std::string_view kind) {
  return std::find(kTimeSeries.begin(), kTimeSeries.end(), kind) != kTimeSeries.end();
}

std::optional<HydroInput> NetworkOf(const ProjectData& project, const HydroInput& inMemory,
                                    Ui& ui) {
  const bool isFile = FindFile(project.HydroFile, project.FileName).has_value();
  if (inMemory.HydroLoaded &&
      (!isFile || SameFile(inMemory.FileName, project.HydroFile, project.FileName))) {
    return inMemory;
  }
  HydroInput network;
  ProjectData names = project;
  if (!isFile || !LoadHNPFile(network, names, ui, project.HydroFile)) return std::nullopt;
  return network;
}

}  // namespace

void LookAtAttachedFile(const EditRequest& attached, const HydroInput& inMemory,
                        const ProjectData& project, const Tables& tables, Ui& ui) {
  if (!IsTimeSeries(attached.Kind) || !FindFile(attached.FileName, project.FileName)) return;
  const std::optional<HydroInput> network = NetworkOf(project, inMemory, ui);
  if (!network) return;
  AuxData aux;
  aux.FileName = attached.FileName;
  if (attached.Kind == "BCF") {
    if (attached.Row < 1 || attached.Row > network->BranchCount) return;
    const BranchRec& branch = network->Branches[attached.Row];
    aux.BoundaryType = attached.IsUpstream ? branch.USType : branch.DSType;
  }
  Tables ownTables = tables;
  LoadAUXFile(aux, {*network, project, ownTables, ui});
}

}  // namespace lomaris

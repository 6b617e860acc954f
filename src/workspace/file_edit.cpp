#include "workspace/file_edit.h"

#include "core/files.h"
#include "core/tables.h"
#include "model/hnp_file.h"
#include "workspace/file_slots.h"

namespace lomaris {
namespace {

constexpr std::string_view kTypesOnNetwork = ".QNP.LAT.WIT.POW.MET.BCF.BMD";

/// A missing file would be taken as a new one by the reader; here it is no network.
bool LoadNetwork(HydroInput& hydro, ProjectData& project, Ui& ui) {
  if (hydro.HydroLoaded) return true;
  return FindFile(project.HydroFile, project.FileName) &&
         LoadHNPFile(hydro, project, ui, project.HydroFile) && hydro.HydroLoaded;
}

}  // namespace

bool NeedsNetwork(std::string_view kind) {
  return kTypesOnNetwork.find("." + std::string(kind)) != std::string_view::npos;
}

std::optional<EditRequest> PrepareFileEdit(EditRequest request, HydroInput& hydro,
                                           ProjectData& project, Ui& ui) {
  request.FileName = NameBeforeRemark(request.FileName);
  if (!request.FileName.empty()) request.Kind = TypeKey(request.FileName);
  if (request.Kind.empty()) return std::nullopt;
  if (NeedsNetwork(request.Kind) && !LoadNetwork(hydro, project, ui)) {
    ui.ShowMessage({.Text = "Unable to load hydrodynamic file named \"" + project.HydroFile +
                            "\". You cannot edit auxiliary files without specifying a valid HNP "
                            "file in the project editor.",
                    .Title = "Edit Auxiliary File"});
    return std::nullopt;
  }
  return request;
}

}  // namespace lomaris

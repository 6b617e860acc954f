#include "workspace/file_edit.h"

#include "core/files.h"
#include "core/tables.h"
#include "model/hnp_file.h"
#include "workspace/file_slots.h"

namespace lomaris {
namespace {

constexpr std::string_view kTypesOnNetwork = ".QNP.LAT.WIT.POW.MET.BCF.BMD";

/// True for the types of file that are tied to the network: they are edited only while a
/// hydrodynamic file is loaded.
bool NeedsNetwork(std::string_view kind) {
  return kind.size() == 3 &&
         kTypesOnNetwork.find("." + std::string(kind)) != std::string_view::npos;
}

/// A missing file would be taken as a new one by the reader; here it is no network. The network in
/// memory counts when it is that of the file which the project names, or has unsaved changes.
bool LoadNetwork(HydroInput& hydro, ProjectData& project, Ui& ui) {
  if (hydro.HydroLoaded && hydro.Dirty) return true;
  const std::optional<std::string> named = FindFile(project.HydroFile, project.FileName);
  if (!named) return hydro.HydroLoaded;
  if (hydro.HydroLoaded && FindFile(hydro.FileName, project.FileName) == named) return true;
  return LoadHNPFile(hydro, project, ui, project.HydroFile) && hydro.HydroLoaded;
}

}  // namespace

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

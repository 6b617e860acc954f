#include "workspace/file_edit.h"

#include "core/files.h"
#include "core/tables.h"
#include "model/network_in_memory.h"
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

}  // namespace

std::optional<EditRequest> PrepareFileEdit(EditRequest request, HydroInput& hydro,
                                           ProjectData& project, Ui& ui, Workbench& windows) {
  request.FileName = NameBeforeRemark(request.FileName, project.FileName);
  if (!request.FileName.empty()) request.Kind = TypeKey(request.FileName);
  if (request.Kind.empty()) return std::nullopt;
  if (!NeedsNetwork(request.Kind)) return request;
  const NetworkState state = LoadNetwork(hydro, project, ui, windows);
  if (state == NetworkState::Missing) {
    ui.ShowMessage({.Text = "Unable to load hydrodynamic file named \"" + project.HydroFile +
                            "\". You cannot edit auxiliary files without specifying a valid HNP "
                            "file in the project editor.",
                    .Title = "Edit Auxiliary File"});
  }
  return state == NetworkState::Loaded ? std::optional(request) : std::nullopt;
}

}  // namespace lomaris

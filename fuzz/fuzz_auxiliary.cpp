// The text kinds of auxiliary files: each input is taken for a file of every kind.

#include "auxiliary/aux_file.h"
#include "bench/quiet_ui.h"
#include "bench/quiet_window.h"
#include "fuzz/round_trip.h"

namespace lomaris {
namespace {

HydroInput Network() {
  HydroInput hydro;
  hydro.BranchCount = 1;
  BranchRec& branch = hydro.Branches[1];
  for (const char* name : {"Head", "Mill", "Weir", "Brook"}) {
    branch.XSects.Resize(++branch.XSectCount);
    branch.XSects[branch.XSectCount].Name = name;
  }
  return hydro;
}

void RoundTripOf(const char* name, const char* boundaryType, const std::uint8_t* data,
                 std::size_t size) {
  static const HydroInput hydro = Network();
  const ProjectData project;
  QuietUi ui;
  QuietWindow window;
  Tables tables = InitTables(ui);
  const AuxSurroundings around = {hydro, project, tables, ui, &window};
  AuxData fresh;
  fresh.FileName = (FuzzFolder() / name).string();
  fresh.BoundaryType = boundaryType;
  const auto load = [&](AuxData& aux, const std::string&) {
    if (!LoadAUXFile(aux, around)) return false;
    // An entry beyond the network has the name of the last node until the user moves it there.
    for (AuxXSect& xsect : aux.XSect) {
      const bool isNode = TypeKey(name) != "BCF";
      if (isNode && (xsect.Node < 1 || xsect.Node > 4)) xsect.Node = 4;
      // An intake that no cross section has ends the next load, or moves with the one before.
      if (xsect.IntakeNode < 1 || xsect.IntakeNode > 4) {
        xsect.IntakeNode = 4;
        xsect.IntakeName = "Brook";
      }
    }
    MarkNodesOfEntries(aux);
    // Alone it is written in a form that reads back as none; the editor lets nobody save that.
    if (aux.TemperatureOption == 0) aux.CloudOption = 0;
    aux.Modified = false;  // a wet bulb that nobody corrects is asked about at each load
    return true;
  };
  const auto save = [&](AuxData& aux, const std::string&) { return SaveAUXFile(aux, around); };
  RoundTrip(data, size, fresh, load, save, name);
}

}  // namespace
}  // namespace lomaris

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const char* name : {"input.lat", "input.wit", "input.pow", "input.bcf", "input.met"}) {
    lomaris::RoundTripOf(name, "Q", data, size);
  }
  lomaris::RoundTripOf("input.bcf", "T", data, size);
  return 0;
}

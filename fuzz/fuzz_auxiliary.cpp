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

void RoundTripOf(const char* name, const std::uint8_t* data, std::size_t size) {
  static const HydroInput hydro = Network();
  const ProjectData project;
  QuietUi ui;
  QuietWindow window;
  Tables tables = InitTables(ui);
  const AuxSurroundings around = {hydro, project, tables, ui, &window};
  AuxData fresh;
  fresh.FileName = (FuzzFolder() / name).string();
  const auto load = [&](AuxData& aux, const std::string&) {
    if (!LoadAUXFile(aux, around)) return false;
    MarkNodesOfEntries(aux);
    return true;
  };
  const auto save = [&](AuxData& aux, const std::string&) { return SaveAUXFile(aux, around); };
  RoundTrip(data, size, fresh, load, save, name);
}

}  // namespace
}  // namespace lomaris

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const char* name : {"input.lat", "input.wit", "input.pow"}) {
    lomaris::RoundTripOf(name, data, size);
  }
  return 0;
}

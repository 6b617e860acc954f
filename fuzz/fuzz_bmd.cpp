// Binary modeling files, read whole, for their names alone, and for the viewer.

#include "auxiliary/aux_file.h"
#include "auxiliary/cls_bmd.h"
#include "bench/quiet_ui.h"
#include "bench/quiet_window.h"
#include "fuzz/round_trip.h"

namespace lomaris {
namespace {

/// Whether a file can be read; a failure is told by an error of our own and no other.
bool Reads(clsBMD& bmd, const std::string& file, bool lowMemory) {
  try {
    return bmd.ReadBMD(file, lowMemory);
  } catch (const RuntimeError&) {
    return false;
  }
}

void View(const std::string& file, Ui& ui) {
  const HydroInput hydro;
  const ProjectData project;
  Tables tables = InitTables(ui);
  QuietWindow window;
  AuxData aux;
  aux.FileName = file;
  const AuxData fresh = aux;
  if (!LoadAUXFile(aux, {hydro, project, tables, ui, &window})) Require(aux == fresh);
}

/// What was read can be written, and from then on the file does not change any more.
void RoundTripOf(const std::string& file) {
  QuietUi ui;
  View(file, ui);
  clsBMD whole(ui), names(ui);
  const bool reads = Reads(whole, file, false);
  Require(Reads(names, file, true) == reads);
  if (!reads) return;
  Require(whole.SegName(whole.NumSegments()) == names.SegName(names.NumSegments()));
  Require(whole.WriteBMD(file));
  const std::string bytes = ReadWholeFile(file);
  Require(whole.ReadBMD(file, false));
  Require(whole.WriteBMD(file));
  Require(ReadWholeFile(file) == bytes);
}

}  // namespace
}  // namespace lomaris

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string file = (lomaris::FuzzFolder() / "input.bmd").string();
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  lomaris::RoundTripOf(file);
  return 0;
}

#include "bench/quiet_ui.h"
#include "fuzz/round_trip.h"
#include "model/hnp_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lomaris;
  QuietUi ui(20);
  ProjectData project;
  project.BCFilesH[1].Upstream = "head.bcf";
  project.BCFilesH[2].Downstream = "tail.bcf";
  RoundTrip(
      data, size, HydroInput(),
      [&](HydroInput& hydro, const std::string& file) {
        return LoadHNPFile(hydro, project, ui, file);
      },
      [&](HydroInput& hydro, const std::string& file) {
        return SaveHNPFile(hydro, project, ui, file);
      });
  return 0;
}

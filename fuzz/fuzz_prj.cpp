#include "bench/quiet_ui.h"
#include "fuzz/round_trip.h"
#include "model/prj_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lomaris;
  QuietUi ui(20);
  RoundTrip(
      data, size, ProjectData(),
      [&](ProjectData& project, const std::string& file) { return LoadPRJFile(project, ui, file); },
      [&](ProjectData& project, const std::string& file) {
        return SavePRJFile(project, ui, file);
      });
  return 0;
}

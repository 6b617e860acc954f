#include "bench/quiet_ui.h"
#include "fuzz/round_trip.h"
#include "model/xsg_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lomaris;
  QuietUi ui(20);
  const ProjectData project;
  RoundTrip(
      data, size, XSectLibrary(),
      [&](XSectLibrary& library, const std::string& file) {
        return LoadXSGFile(library, project, ui, file);
      },
      [&](XSectLibrary& library, const std::string& file) {
        return SaveXSGFile(library, project, ui, file);
      });
  return 0;
}

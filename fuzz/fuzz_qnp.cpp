#include "bench/quiet_ui.h"
#include "fuzz/round_trip.h"
#include "model/qnp_file.h"

namespace {

/// Two branches of three cross sections, as those of the corpus.
lomaris::HydroInput Network() {
  lomaris::HydroInput hydro;
  hydro.BranchCount = 2;
  for (int i = 1; i <= 2; ++i) {
    lomaris::BranchRec& branch = hydro.Branches[i];
    branch.Name = "B" + std::to_string(i);
    branch.XSectCount = 3;
    branch.XSects.Resize(3);
    for (int j = 1; j <= 3; ++j) {
      branch.XSects[j].Name = "X" + std::to_string(i) + std::to_string(j);
    }
  }
  return hydro;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lomaris;
  static const HydroInput hydro = Network();
  QuietUi ui(20);
  ProjectData project;
  project.BCFilesQ[1].Upstream = "head.bcf";
  RoundTrip(
      data, size, QualInput(),
      [&](QualInput& qual, const std::string& file) {
        return LoadQNPFile(qual, project, hydro, ui, file, {.Names = NamesFrom::File});
      },
      [&](QualInput& qual, const std::string& file) {
        return SaveQNPFile(qual, project, ui, file);
      });
  return 0;
}

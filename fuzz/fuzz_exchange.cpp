#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>

#include "bench/quiet_monitor.h"
#include "bench/quiet_ui.h"
#include "core/steady_clock.h"
#include "fuzz/round_trip.h"
#include "run/model_link.h"

namespace {

using namespace lomaris;

constexpr std::size_t kRows = 3;

/// Holds what the link shows against what a window can take.
class ExactingMonitor : public QuietMonitor {
 public:
  void SetPercent(float percent) override { Require(percent >= 0 && percent <= 100); }
  void SetInterval(int milliseconds) override {
    Require(milliseconds >= Interval() && milliseconds <= kLongestInterval);
    QuietMonitor::SetInterval(milliseconds);
  }
  void SetUpGrid(const std::vector<std::string>& titles,
                 const std::vector<std::string>& rowLabels) override {
    Require(titles.size() >= 2 && rowLabels.size() == kRows);
  }
  void ShowColumn(int column, std::span<const float> values) override {
    Require(column >= 1 && values.size() == kRows);
  }
  void ShowChart(std::span<const float> values, double axisMaximum) override {
    Require(values.size() == kRows && std::isfinite(axisMaximum) && axisMaximum > 0);
  }
};

}  // namespace

/// The first byte says what the user looks at; the rest is the file of a model that is cut short
/// once, and then there again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::filesystem::path file = FuzzFolder() / kModelFileName;
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(data + 1), static_cast<std::streamsize>(size - 1));

  HydroInput hydro;
  hydro.BranchCount = 1;
  hydro.Branches[1].XSects.Resize(kRows);
  ProgressState state;
  ModelFile model(file.string());
  ReplyFile reply((FuzzFolder() / kReplyFileName).string());
  reply.Open();
  ExactingMonitor monitor;
  monitor.Grid = (data[0] & 1) != 0;
  monitor.Cancel = (data[0] & 2) != 0;
  QuietUi ui;
  SteadyClock clock;
  QuietProcesses processes;
  const ModelLink link{state, model, reply, hydro, monitor, ui, clock, processes};
  for (const std::size_t length : {size - 1, (size - 1) / 2, size - 1}) {
    std::filesystem::resize_file(file, length);
    PollModel(link);
    PollModel(link);
  }
  return 0;
}

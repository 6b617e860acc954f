// One tick of the link to a running model on a network as large as they get, beside a bare read of
// the same bytes: the limit to come close to.

#include <vector>

#include "bench/watched_model.h"

namespace lomaris {
namespace {

/// Keeps what it is shown, as the table and the plot of a window do.
class KeepingMonitor : public QuietMonitor {
 public:
  void ShowColumn(int column, std::span<const float> values) override {
    table_[static_cast<std::size_t>(column - 1)].assign(values.begin(), values.end());
  }
  void ShowChart(std::span<const float> values, double) override {
    plot_.assign(values.begin(), values.end());
  }

 private:
  std::vector<std::vector<float>> table_{kCols};
  std::vector<double> plot_;
};

void TickWithGrid(benchmark::State& state) {
  KeepingMonitor monitor;
  Watched watched(monitor);
  for (auto _ : state) watched.Tick();
  state.SetBytesProcessed(state.iterations() * kRows * kCols * static_cast<int>(kNumberWidth));
}
BENCHMARK(TickWithGrid)->Unit(benchmark::kMicrosecond);

void TickWithChart(benchmark::State& state) {
  KeepingMonitor monitor;
  Watched watched(monitor);
  monitor.Grid = false;
  for (auto _ : state) watched.Tick();
}
BENCHMARK(TickWithChart)->Unit(benchmark::kMicrosecond);

BENCHMARK(BareReadOfTheResults)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace lomaris

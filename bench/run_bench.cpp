// One tick of the link to a running model on a network as large as they get, beside a bare read of
// the same bytes: the limit to come close to.

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include "bench/quiet_monitor.h"
#include "bench/quiet_ui.h"
#include "core/steady_clock.h"
#include "run/exchange_writer.h"
#include "run/model_link.h"

namespace lomaris {
namespace {

namespace fs = std::filesystem;

constexpr int kRows = 10000;
constexpr int kCols = 10;
constexpr int kBranches = 20;

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

/// A model's file with one update in it, and all that watches it.
class Watched {
 public:
  Watched() : folder_(MakeFolder()), model(File(kModelFileName)), reply(File(kReplyFileName)) {
    hydro.BranchCount = kBranches;
    for (int branch = 1; branch <= kBranches; ++branch) {
      hydro.Branches[branch].XSects.Resize(kRows / kBranches);
    }
    writer = std::make_unique<ModelFileWriter>(File(kModelFileName), kRows);
    writer->SetSize(kRows, kCols);
    writer->SetFormat("Section|Flow|Stage|Depth|Width|Area|Velocity|Slope|Storage|Loss|Head");
    std::vector<float> values(kRows);
    for (int column = 1; column <= kCols; ++column) {
      for (int row = 0; row < kRows; ++row) {
        values[static_cast<std::size_t>(row)] = static_cast<float>(column * 100 + row % 1787);
      }
      writer->SetColumn(column, values);
    }
    writer->SetUpdate("05/01/97 12:00", 0);
    writer->SetCommand("UPDATE");
    reply.Open();
  }
  ~Watched() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;

  std::string File(std::string_view name) const { return (folder_ / name).string(); }

  /// The model moves on, and the tick takes it up.
  void Tick() {
    percent_ = percent_ < 99 ? percent_ + 0.001F : 1;
    writer->SetUpdate("05/01/97 12:00", percent_);
    PollModel({state, model, reply, hydro, monitor, ui, clock, processes});
  }

 private:
  static fs::path MakeFolder() {
    std::string pattern = (fs::temp_directory_path() / "lomaris_bench_XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder to work in");
    return pattern;
  }

  fs::path folder_;
  float percent_ = 0;

 public:
  ProgressState state;
  ModelFile model;
  ReplyFile reply;
  HydroInput hydro;
  KeepingMonitor monitor;
  QuietUi ui;
  SteadyClock clock;
  QuietProcesses processes;
  std::unique_ptr<ModelFileWriter> writer;
};

void TickWithGrid(benchmark::State& state) {
  Watched watched;
  for (auto _ : state) watched.Tick();
  state.SetBytesProcessed(state.iterations() * kRows * kCols * static_cast<int>(kNumberWidth));
}
BENCHMARK(TickWithGrid)->Unit(benchmark::kMicrosecond);

void TickWithChart(benchmark::State& state) {
  Watched watched;
  watched.monitor.Grid = false;
  for (auto _ : state) watched.Tick();
}
BENCHMARK(TickWithChart)->Unit(benchmark::kMicrosecond);

void BareReadOfTheResults(benchmark::State& state) {
  const Watched watched;
  const int file = ::open(watched.File(kModelFileName).c_str(), O_RDONLY | O_CLOEXEC);
  std::vector<char> bytes(kRows * kCols * kNumberWidth);
  const auto start = static_cast<off_t>(RecordPosition(5, kRows * kNumberWidth) - 1);
  for (auto _ : state) {
    benchmark::DoNotOptimize(::pread(file, bytes.data(), bytes.size(), start));
  }
  ::close(file);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK(BareReadOfTheResults)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace lomaris

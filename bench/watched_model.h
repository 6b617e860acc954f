#pragma once

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

// A network as large as they get.
inline constexpr int kRows = 10000;
inline constexpr int kCols = 10;
inline constexpr int kBranches = 20;

/// A model's file with one update in it, and all that watches it for a monitor.
class Watched {
 public:
  explicit Watched(MonitorView& watching)
      : folder_(MakeFolder()),
        monitor(watching),
        model(File(kModelFileName)),
        reply(File(kReplyFileName)) {
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
    std::filesystem::remove_all(folder_, ignored);
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
  static std::filesystem::path MakeFolder() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "lomaris_bench_XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder to work in");
    return pattern;
  }

  std::filesystem::path folder_;
  float percent_ = 0;

 public:
  MonitorView& monitor;
  ProgressState state;
  ModelFile model;
  ReplyFile reply;
  HydroInput hydro;
  QuietUi ui;
  SteadyClock clock;
  QuietProcesses processes;
  std::unique_ptr<ModelFileWriter> writer;
};

/// The rival of a tick: the bytes of the results, read and left alone.
inline void BareReadOfTheResults(benchmark::State& state) {
  QuietMonitor nobody;
  const Watched watched(nobody);
  const int file = ::open(watched.File(kModelFileName).c_str(), O_RDONLY | O_CLOEXEC);
  std::vector<char> bytes(kRows * kCols * kNumberWidth);
  const auto start = static_cast<off_t>(RecordPosition(5, kRows * kNumberWidth) - 1);
  for (auto _ : state) {
    benchmark::DoNotOptimize(::pread(file, bytes.data(), bytes.size(), start));
  }
  ::close(file);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

}  // namespace lomaris

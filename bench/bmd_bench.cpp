// The reader and the writer of binary modeling files, each beside a plain read and write of the
// same bytes. LOMARIS_BENCH_MB sets the size of the file in megabytes, 100 when it is not set:
//   LOMARIS_BENCH_MB=500 bin/bmd_bench

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>

#include <benchmark/benchmark.h>

#include "auxiliary/cls_bmd.h"
#include "bench/bare_pass.h"
#include "bench/quiet_ui.h"

namespace lomaris {
namespace {

constexpr std::int32_t kVars = 10;

std::int64_t WholeSize() {
  const char* megabytes = std::getenv("LOMARIS_BENCH_MB");
  return (megabytes == nullptr ? 100 : std::max(1, std::atoi(megabytes))) * std::int64_t{1'000'000};
}

/// A file of about `size` bytes.
class Fixture {
 public:
  Fixture(std::int64_t size, std::int32_t segments) {
    const auto times = static_cast<std::int32_t>(
        size / (std::int64_t{sizeof(float)} * kVars * segments + std::int64_t{sizeof(double)}));
    Bmd.InitializeBMD(kVars, segments, times, 0);
    ConcBlock concs(kVars, segments, times);
    for (std::size_t i = 0; i < concs.Size(); ++i) {
      concs.Data()[i] = static_cast<float>((i * 7919) % 100'000) / 100;
    }
    Bmd.SetConcs(std::move(concs));
    Bmd.WriteBMD(File);
  }

  std::size_t Size() const { return std::filesystem::file_size(File); }

  const Folder Place{false};
  const std::string File = Place.File("a.bmd");
  QuietUi Screen;
  clsBMD Bmd{Screen};
};

void Count(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void Read(benchmark::State& state) {
  Fixture fixture(WholeSize() / state.range(1), static_cast<std::int32_t>(state.range(0)));
  fixture.Bmd.EraseData();
  for (auto _ : state) {
    clsBMD bmd(fixture.Screen);
    if (!bmd.ReadBMD(fixture.File, false)) state.SkipWithError("the file was not read");
  }
  Count(state, fixture.Size());
}

void PlainRead(benchmark::State& state) {
  const Fixture fixture(WholeSize() / state.range(1), static_cast<std::int32_t>(state.range(0)));
  const std::size_t size = fixture.Size();
  for (auto _ : state) {
    const auto bytes = std::make_unique_for_overwrite<char[]>(size);
    std::ifstream(fixture.File, std::ios::binary)
        .read(bytes.get(), static_cast<std::streamsize>(size));
    benchmark::DoNotOptimize(bytes[size - 1]);
  }
  Count(state, size);
}

void Write(benchmark::State& state) {
  Fixture fixture(WholeSize() / state.range(1), static_cast<std::int32_t>(state.range(0)));
  for (auto _ : state) fixture.Bmd.WriteBMD(fixture.File);
  Count(state, fixture.Size());
}

/// To the same name again, as a save does.
void PlainWrite(benchmark::State& state) {
  const Fixture fixture(WholeSize() / state.range(1), static_cast<std::int32_t>(state.range(0)));
  const std::size_t size = fixture.Size();
  const auto bytes = std::make_unique<char[]>(size);
  for (auto _ : state) {
    std::ofstream(fixture.File, std::ios::binary)
        .write(bytes.get(), static_cast<std::streamsize>(size));
  }
  Count(state, size);
}

/// Segments, then the part of the size: a sixteenth, a quarter, and the whole; then short steps.
void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Args({100, 16})->Args({100, 4})->Args({100, 1})->Args({1, 1});
  benchmark->Unit(benchmark::kMillisecond)->UseRealTime()->MinWarmUpTime(0.5);
}

BENCHMARK(Read)->Apply(Sizes);
BENCHMARK(PlainRead)->Apply(Sizes);
BENCHMARK(Write)->Apply(Sizes);
BENCHMARK(PlainWrite)->Apply(Sizes);

}  // namespace
}  // namespace lomaris

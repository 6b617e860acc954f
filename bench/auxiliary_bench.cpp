// The reader and the writer of the auxiliary files at the largest sizes, each beside a bare pass
// over the same numbers. The argument is the number of time steps: cost grows linearly with it.
// Each load and save tells its peak memory as a part of what it may take: the file's size and one
// and a half times the series.

#include <algorithm>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "auxiliary/aux_file.h"
#include "bench/bare_pass.h"
#include "bench/quiet_ui.h"
#include "bench/quiet_window.h"

namespace lomaris {
namespace {

/// A kind of file at its widest; boundaries with as many columns as leave room for 50,000 steps.
struct Kind {
  const char* Name;
  std::int32_t XSects;
  std::int32_t Series;   ///< cross sections with values in the file
  std::int32_t Columns;  ///< of each of them
  std::int32_t Slots;    ///< of each of them in memory
};

constexpr Kind kLAT = {"a.lat", 40, 40, 17, 17};
constexpr Kind kWIT = {"a.wit", 1, 1, 1, 1};
constexpr Kind kPOW = {"a.pow", 2, 2, 2, 2};
constexpr Kind kBCF = {"a.bcf", 1, 1, 5, 17};
constexpr Kind kMET = {"a.met", 2, 1, 5, 5};

/// Measured values as a monitoring network delivers them: some decimals, some whole.
float Measured(std::int64_t i) {
  const auto value = static_cast<float>((i * 7919) % 100'000);
  return i % 5 == 0 ? value : value / 100;
}

class Fixture {
 public:
  Fixture(const Kind& kind, std::int32_t steps) : tables_(InitTables(Ui)), kind_(kind) {
    Network.BranchCount = 1;
    Network.Branches[1].XSectCount = static_cast<std::int16_t>(kind.XSects);
    Network.Branches[1].XSects.Resize(kind.XSects);
    Aux.FileName = folder_.File(kind.Name);
    project_.BCCountH = 1;
    project_.BCFilesH[1].Upstream = Aux.FileName;
    Aux.NumTimes = steps;
    Aux.Times.Resize(steps);
    for (std::int32_t t = 1; t <= steps; ++t) Aux.Times[t] = 36526 + (t - 1) / 24.0;
    for (int slot = 1; slot <= kind.Columns; ++slot) Aux.ActiveConst[slot] = true;
    Aux.NumConst = kind.Columns - 1;
    Aux.NumXSect = kind.XSects;
    Aux.XSect.Resize(kind.XSects);
    for (std::int32_t i = 1; i <= kind.XSects; ++i) FillXSect(i);
  }

  bool Load() { return LoadAUXFile(Aux, around_); }
  bool Save() { return SaveAUXFile(Aux, around_); }
  std::string File() const { return Aux.FileName; }

  std::vector<float> Numbers() const {
    std::vector<float> numbers;
    for (std::int32_t t = 1; t <= Aux.NumTimes; ++t) {
      numbers.insert(numbers.end(), {2000, 1, 1, static_cast<float>(t % 24)});
      for (std::int32_t i = 1; i <= kind_.Series; ++i) {
        const float* row = Aux.XSect[i].Values.Row(t);
        numbers.insert(numbers.end(), row, row + kind_.Columns);
      }
    }
    return numbers;
  }

  double Values() const { return static_cast<double>(Aux.NumTimes) * kind_.XSects * kind_.Slots; }

  QuietUi Ui;
  HydroInput Network;
  AuxData Aux;

 private:
  void FillXSect(std::int32_t i) {
    AuxXSect& xsect = Aux.XSect[i];
    xsect.Node = xsect.IntakeNode = i;
    xsect.Name = xsect.IntakeName = Network.Branches[1].XSects[i].Name = "XS" + std::to_string(i);
    xsect.Values = ValueBlock(kind_.Slots, Aux.NumTimes);
    Aux.ActiveNode[i] = true;
    for (std::int32_t t = 1; t <= Aux.NumTimes; ++t) {
      for (int slot = 1; slot <= kind_.Columns; ++slot) {
        xsect.Values(slot, t) = Measured(std::int64_t{t} * 640 + i * 16 + slot);
      }
    }
  }

  Folder folder_{false};
  Tables tables_;
  Kind kind_;
  ProjectData project_;
  QuietWindow window_;
  AuxSurroundings around_{Network, project_, tables_, Ui, &window_};
};

/// Bytes of a line of the system's account of this process: "VmHWM", the peak, or "VmRSS".
double MemoryOf(const std::string& line) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == line + ":" && status >> kilobytes) return kilobytes * 1024;
  }
  return std::numeric_limits<double>::quiet_NaN();
}

/// What `action` takes at its peak beyond what the process had.
template <class Action>
double PeakOf(Action action) {
  ::malloc_trim(0);                               // what was freed is not to be had for nothing
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
  const double before = MemoryOf("VmRSS");
  action();
  return MemoryOf("VmHWM") - before;
}

double Allowed(const Fixture& fixture) {
  const auto size = static_cast<double>(std::filesystem::file_size(fixture.File()));
  const auto steps = static_cast<double>(fixture.Aux.NumTimes);
  return size + 1.5 * (sizeof(float) * fixture.Values() + sizeof(ModelDateTime) * steps);
}

void Load(benchmark::State& state, const Kind& kind) {
  Fixture fixture(kind, static_cast<std::int32_t>(state.range(0)));
  fixture.Save();
  const double allowed = Allowed(fixture);
  const std::string name = fixture.File();
  fixture.Aux = AuxData();
  fixture.Aux.FileName = name;
  state.counters["memory"] = PeakOf([&] { fixture.Load(); }) / allowed;
  for (auto _ : state) fixture.Load();
  if (fixture.Ui.Boxes() > 0) state.SkipWithError("the file was not read");
}

void LoadRival(benchmark::State& state, const Kind& kind) {
  Fixture fixture(kind, static_cast<std::int32_t>(state.range(0)));
  fixture.Save();
  for (auto _ : state) benchmark::DoNotOptimize(SumOfNumbers(fixture.File()));
}

void Save(benchmark::State& state, const Kind& kind) {
  Fixture fixture(kind, static_cast<std::int32_t>(state.range(0)));
  fixture.Save();
  state.counters["memory"] = PeakOf([&] { fixture.Save(); }) / Allowed(fixture);
  for (auto _ : state) fixture.Save();
  if (fixture.Ui.Boxes() > 0) state.SkipWithError("the file was not written");
}

void SaveRival(benchmark::State& state, const Kind& kind) {
  Fixture fixture(kind, static_cast<std::int32_t>(state.range(0)));
  const std::vector<float> numbers = fixture.Numbers();
  for (auto _ : state) WriteWholeFile(fixture.File(), BareText(numbers), Backup::None);
}

#define LOMARIS_SERIES_BENCHMARKS(kind, limit)                                          \
  BENCHMARK_CAPTURE(Load, kind, kind)->Arg((limit) / 16)->Arg((limit) / 4)->Arg(limit); \
  BENCHMARK_CAPTURE(LoadRival, kind, kind)->Arg(limit);                                 \
  BENCHMARK_CAPTURE(Save, kind, kind)->Arg((limit) / 16)->Arg((limit) / 4)->Arg(limit); \
  BENCHMARK_CAPTURE(SaveRival, kind, kind)->Arg(limit)

LOMARIS_SERIES_BENCHMARKS(kLAT, 8333);
LOMARIS_SERIES_BENCHMARKS(kWIT, 116'667);
LOMARIS_SERIES_BENCHMARKS(kPOW, 87'500);
LOMARIS_SERIES_BENCHMARKS(kBCF, 50'000);
LOMARIS_SERIES_BENCHMARKS(kMET, 50'000);

}  // namespace
}  // namespace lomaris

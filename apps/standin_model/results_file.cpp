#include "results_file.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "auxiliary/cls_bmd.h"

namespace lomaris {
namespace {

/// Behind the name of each variable: such a file may outlive the memory of where it came from.
constexpr const char* kMark = " made up";

void TakeNames(clsBMD& results, const FloodWave& wave) {
  for (int column = 1; column <= wave.Cols(); ++column) {
    results.SetVarName(column, wave.Name(column) + kMark);
    results.SetVarUnits(column, wave.Units(column));
  }
  for (int row = 1; row <= wave.Rows(); ++row) results.SetSegName(row, wave.XSectName(row));
}

}  // namespace

bool WriteResults(const std::string& path, const FloodWave& wave, std::span<const double> parts,
                  Ui& ui) {
  const auto steps = static_cast<std::int32_t>(parts.size());
  ConcBlock values(wave.Cols(), wave.Rows(), steps);
  BoundedArray<ModelDateTime> times(1, steps);
  for (std::int32_t step = 1; step <= steps; ++step) {
    const double part = parts[static_cast<std::size_t>(step - 1)];
    times[step] = wave.Time(part);
    for (int column = 1; column <= wave.Cols(); ++column) {
      std::int32_t row = 0;
      for (const float value : wave.Column(column, part)) values(column, ++row, step) = value;
    }
  }
  clsBMD results(ui);
  results.InitializeBMD(wave.Cols(), wave.Rows(), steps, 0);
  TakeNames(results, wave);
  results.SetTimes(std::move(times));
  results.SetConcs(std::move(values));
  return results.WriteBMD(path);
}

}  // namespace lomaris

#include "auxiliary/cls_bmd.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <utility>

#include "core/files.h"
#include "core/numbers.h"
#include "core/run_time_error.h"

namespace lomaris {
namespace {

constexpr double kSeedTimes = 4294967296;  // one more than the largest
constexpr double kSecondsPerDay = 86400;
constexpr double kHoursPerDay = 24;

/// The seconds that 32 bits hold as an unsigned number, as the record has them.
std::int32_t StoredSeedTime(double seconds) {
  const double whole = std::nearbyint(seconds);
  if (!(whole >= 0 && whole < kSeedTimes)) {
    throw RuntimeError(ErrorNumber::Overflow, std::isfinite(seconds)
                                                  ? NumberText(seconds) + " is no seed time"
                                                  : "the seed time is not a finite number");
  }
  const bool isNegative = whole > std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(isNegative ? whole - kSeedTimes : whole);
}

}  // namespace

bool clsBMD::ReadBMD(const std::string& fileName, bool lowMemory) {
  const std::optional<std::string> path = FindFile(fileName);
  std::error_code unknown;
  if (!path || std::filesystem::file_size(*path, unknown) == 0) return false;
  BMDContent content;
  {
    const BusyPointer busy(ui_);
    content = ReadBMDFile(*path, lowMemory);
  }
  if (content.HasNoData()) {
    ui_.ShowMessage({.Text = "This BMD file contains no data."});
    return false;
  }
  content_ = std::move(content);
  isDataLoaded_ = !lowMemory;
  lowMemory_ = lowMemory;
  DateStoredTimes();
  return true;
}

void clsBMD::InitializeBMD(std::int32_t numVars, std::int32_t numSegments, std::int32_t numTimes,
                           double seedTime) {
  BMDContent content;
  content.SeedTime = StoredSeedTime(seedTime);
  content.NumVars = numVars;
  content.NumSegments = numSegments;
  content.NumTimes = numTimes;
  content.VarName.Resize(numVars);
  content.VarUnits.Resize(numVars);
  content.Concs = ConcBlock(numVars, numSegments, numTimes);
  content.StoredTimes.Resize(numTimes);
  content.Ranges.OfVars.Resize(numVars);
  content.Ranges.OfSegments.Resize(std::int64_t{numVars} * numSegments);
  content.SegName.Resize(numSegments);
  content_ = std::move(content);
  isDataLoaded_ = lowMemory_ = false;
  DateStoredTimes();
}

void clsBMD::EraseData() {
  content_.Concs = {};
  content_.StoredTimes = {};
  isDataLoaded_ = false;
}

bool clsBMD::WriteBMD(const std::string& fileName) {
  if (content_.HasNoData()) {
    ui_.ShowMessage({.Text = "This BMD file could contain no data so it was not written."});
    return false;
  }
  const BusyPointer busy(ui_);
  const double start = content_.StartTime, end = content_.EndTime;
  const auto& stored = content_.StoredTimes;
  const auto [smallest, largest] = std::minmax_element(stored.begin(), stored.end());
  if (smallest != stored.end()) {
    content_.StartTime = *smallest;
    content_.EndTime = *largest;
  }
  try {
    content_.Ranges = WriteBMDFile(TargetPath(fileName), content_);
  } catch (...) {
    content_.StartTime = start;
    content_.EndTime = end;
    throw;
  }
  return true;
}

void clsBMD::SetTimeOffset(std::int16_t hours) {
  timeOffset_ = hours;
  if (isDataLoaded_) {
    DateStoredTimes();
  } else {
    StoreDates();
  }
}

BoundedArray<double> clsBMD::ConcVarSeg(std::int32_t var, std::int32_t seg) const {
  BoundedArray<double> series(1, NumTimes());
  for (std::int32_t time = 1; time <= NumTimes(); ++time) {
    series[time] = content_.Concs(var, seg, time);
  }
  return series;
}

BoundedArray<BoundedArray<double>> clsBMD::ConcVar(std::int32_t var) const {
  BoundedArray<BoundedArray<double>> all(1, NumSegments());
  for (std::int32_t seg = 1; seg <= all.Count(); ++seg) all[seg] = ConcVarSeg(var, seg);
  return all;
}

void clsBMD::SetConcs(ConcBlock concs) {
  if (concs.Vars() != NumVars() || concs.Segments() != NumSegments() ||
      concs.Times() != NumTimes()) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  }
  content_.Concs = std::move(concs);
}

double clsBMD::SeedTime() const {
  return content_.SeedTime < 0 ? content_.SeedTime + kSeedTimes : content_.SeedTime;
}

void clsBMD::SetSeedTime(double seconds) {
  content_.SeedTime = StoredSeedTime(seconds);
  StoreDates();
}

void clsBMD::SetTimes(BoundedArray<ModelDateTime> times) {
  if (times.LowerBound() != 1 || times.Count() != NumTimes()) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  }
  dates_ = std::move(times);
  content_.StoredTimes.Resize(NumTimes());
  StoreDates();
}

void clsBMD::SetVarUnits(std::int32_t var, const std::string& units) {
  content_.VarUnits[var] = AsField(units, kVarUnitsSize);
}

void clsBMD::SetVarName(std::int32_t var, const std::string& name) {
  content_.VarName[var] = AsField(name, kVarNameSize);
}

void clsBMD::SetSegName(std::int32_t seg, const std::string& name) {
  content_.SegName[seg] = AsField(name, kSegNameSize);
}

const Extremes& clsBMD::OfSegment(std::int32_t var, std::int32_t seg) const {
  if (var < 1 || var > NumVars() || seg < 1 || seg > NumSegments()) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  }
  return content_.Ranges.OfSegments[std::int64_t{var - 1} * NumSegments() + seg];
}

ModelDateTime clsBMD::Origin() const {
  return *DateSerial(1901, 1, 1) + SeedTime() / kSecondsPerDay + timeOffset_ / kHoursPerDay;
}

void clsBMD::DateStoredTimes() {
  const ModelDateTime origin = Origin();
  dates_.Resize(content_.StoredTimes.Count());
  std::transform(content_.StoredTimes.begin(), content_.StoredTimes.end(), dates_.begin(),
                 [&](double stored) { return origin + stored; });
}

void clsBMD::StoreDates() {
  if (content_.StoredTimes.Count() != dates_.Count()) return;  // erased, or never read
  const ModelDateTime origin = Origin();
  std::transform(dates_.begin(), dates_.end(), content_.StoredTimes.begin(),
                 [&](ModelDateTime date) { return date - origin; });
}

}  // namespace lomaris

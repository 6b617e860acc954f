#include "run/duration.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <fmt/format.h>

namespace lomaris {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr double kNoTimeYet = 1e30;
constexpr double kSlowestDraw = 10.0 / kSecondsPerDay;
constexpr double kLongest = 1e12;  // s

std::int64_t Rounded(double seconds) {
  return static_cast<std::int64_t>(std::nearbyint(std::clamp(seconds, 0.0, kLongest)));
}

}  // namespace

std::string DurationText(double seconds) {
  if (seconds < 60) return fmt::format("{} seconds", Rounded(seconds));
  const auto whole = static_cast<std::int64_t>(std::min(seconds, kLongest));
  const std::int64_t minutes = whole / 60;
  if (minutes < 60) return fmt::format("{} minutes {} seconds", minutes, whole % 60);
  return fmt::format("{} hours {} minutes {} seconds", minutes / 60, minutes % 60, whole % 60);
}

std::string TimeLeftText(double days) {
  const std::int64_t seconds = Rounded(days * kSecondsPerDay);
  const std::int64_t wholeDays = seconds / kSecondsPerDay;
  const std::string before =
      wholeDays == 0 ? "" : fmt::format("{} {} ", wholeDays, wholeDays == 1 ? "day" : "days");
  return before +
         fmt::format("{:02}:{:02}:{:02}", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60);
}

double SteadyTimeLeft(double shown, double estimate, double elapsed) {
  if (shown <= 0 || shown >= kNoTimeYet || estimate <= 0) return estimate;
  const double counted = std::max(0.0, shown - elapsed);
  const double slowness = std::min(kSlowestDraw, estimate / 4);
  return counted + (estimate - counted) * elapsed / (elapsed + slowness);
}

}  // namespace lomaris

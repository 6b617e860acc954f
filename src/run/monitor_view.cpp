#include "run/monitor_view.h"

#include <cmath>

#include <fmt/format.h>

namespace lomaris {

float WholePercent(float percent) {
  return std::nearbyint(percent);
}

std::string ResultText(float value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  // A hundred times a float is exact in 64 bits: 0.125 becomes 0.13, and -0.001 is no "-0.00".
  return fmt::format("{:.2f}", std::round(double{value} * 100) / 100 + 0.0);
}

double AxisMaximum(float maxValue) {
  const double x = maxValue == 0 ? 1 : maxValue;
  const double power = std::pow(10, std::floor(std::log10(x)));
  return (std::floor(maxValue / power) + 1) * power;
}

}  // namespace lomaris

#include "flood_wave.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include <fmt/format.h>

namespace lomaris {

/// What a column shows at a cross section: `height` is that of the hump there, 0 to 1, and `time`
/// a date and time.
struct ResultColumn {
  const char* Name;
  const char* Units;
  double (*Value)(const XSectRec& xsect, double height, ModelDateTime time);
};

namespace {

// How high the hump is at its crest, and how long; in parts of the longest branch.
constexpr double kFlowRise = 1.5;
constexpr double kDepthRise = 0.7;
constexpr double kHumpLength = 0.12;
constexpr double kRunUp = 0.3;  ///< the crest starts so far above the branch and ends below it

double Flow(const XSectRec& xsect, double height, ModelDateTime) {
  return xsect.Flow * (1 + kFlowRise * height);
}

double Depth(const XSectRec& xsect, double height, ModelDateTime) {
  return xsect.Depth * (1 + kDepthRise * height);
}

double Elevation(const XSectRec& xsect, double height, ModelDateTime time) {
  return xsect.Invert + Depth(xsect, height, time);
}

/// Flow over the area that the network has for the depth; 0 where it has none.
double Velocity(const XSectRec& xsect, double height, ModelDateTime time) {
  const double depth = std::max(Depth(xsect, height, time), 0.0);
  const double area = xsect.C1 * depth + xsect.C2 * std::pow(depth, xsect.C3);
  return area > 0 ? Flow(xsect, height, time) / area : 0;
}

/// Warmest at three in the afternoon; the deeper the water, the less it follows the day.
double Temperature(const XSectRec& xsect, double height, ModelDateTime time) {
  const double hour = (time - std::floor(time)) * 24;
  const double swing = 6 / (1 + std::max(xsect.Depth, 0.0F));
  return 16 - 3 * height + swing * std::cos((hour - 15) / 24 * 2 * std::numbers::pi);
}

/// Near saturation at that temperature, less in the hump.
double Oxygen(const XSectRec& xsect, double height, ModelDateTime time) {
  return 14.6 - 0.3 * Temperature(xsect, height, time) - 2 * height;
}

double OxygenDemand(const XSectRec&, double height, ModelDateTime) {
  return 2 + 4 * height;
}

double Ammonia(const XSectRec&, double height, ModelDateTime) {
  return 0.1 + 0.5 * height;
}

constexpr std::array kHydroColumns = {
    ResultColumn{"Flow", "cfs", Flow},
    ResultColumn{"Depth", "ft", Depth},
    ResultColumn{"Elevation", "ft msl", Elevation},
    ResultColumn{"Velocity", "ft/s", Velocity},
};

constexpr std::array kQualColumns = {
    ResultColumn{"Temp",
                 "\xC2\xB0"
                 "C",
                 Temperature},
    ResultColumn{"DO", "mg/L", Oxygen},
    ResultColumn{"CBODu1", "mg/L", OxygenDemand},
    ResultColumn{"NH3-N", "mg/L", Ammonia},
};

}  // namespace

FloodWave::FloodWave(const HydroInput& hydro, ModelKind kind)
    : hydro_(hydro),
      columns_(kind == ModelKind::Hydro ? std::span<const ResultColumn>(kHydroColumns)
                                        : kQualColumns) {
  double longest = 1;  // ft
  for (int branch = 1; branch <= hydro.BranchCount; ++branch) {
    double distance = 0;
    for (const XSectRec& xsect : hydro.Branches[branch].XSects) {
      places_.push_back({xsect, branch, distance});
      longest = std::max(longest, distance);
      distance += std::max(xsect.Length, 0.0F);
    }
  }
  for (Place& place : places_) place.Position /= longest;
}

std::string FloodWave::Heading() const {
  std::string heading = "Cross section";
  for (int column = 1; column <= Cols(); ++column) {
    heading += fmt::format("|{}, {}", Name(column), Units(column));
  }
  return heading;
}

std::string FloodWave::Name(int column) const {
  return columns_[static_cast<std::size_t>(column - 1)].Name;
}

std::string FloodWave::Units(int column) const {
  return columns_[static_cast<std::size_t>(column - 1)].Units;
}

const std::string& FloodWave::XSectName(int row) const {
  return places_[static_cast<std::size_t>(row - 1)].XSect.get().Name;
}

double FloodWave::Height(const Place& place, double part) const {
  const double crest = part * (1 + 2 * kRunUp) - kRunUp;
  return std::exp(-std::pow((crest - place.Position) / kHumpLength, 2));
}

std::vector<float> FloodWave::Column(int column, double part) const {
  const ResultColumn& result = columns_[static_cast<std::size_t>(column - 1)];
  const ModelDateTime time = Time(part);
  std::vector<float> values;
  values.reserve(places_.size());
  for (const Place& place : places_) {
    values.push_back(
        static_cast<float>(result.Value(place.XSect.get(), Height(place, part), time)));
  }
  return values;
}

std::string FloodWave::CrestAt(double part) const {
  const auto crest = std::ranges::max_element(
      places_, {}, [&](const Place& place) { return Height(place, part); });
  if (crest == places_.end()) return {};
  return fmt::format("{}: {}", crest->Branch, crest->XSect.get().Name);
}

ModelDateTime FloodWave::Time(double part) const {
  return hydro_.StartDate + part * (hydro_.EndDate - hydro_.StartDate);
}

}  // namespace lomaris

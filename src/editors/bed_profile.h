#pragma once

#include <optional>
#include <vector>

#include "spreadsheet/sheet.h"

namespace lomaris {

/// One cross section of a branch, as it is drawn. What the grid holds no number for is missing.
struct ProfilePoint {
  int Row = 0;                         ///< of the grid
  double Distance = 0;                 ///< ft downstream of the branch's first cross section
  std::optional<double> Invert = {};   ///< ft msl
  std::optional<double> Surface = {};  ///< ft msl, initial water surface

  bool operator==(const ProfilePoint&) const = default;
};

/// Bed and initial water surface along the branch in `ssXSect`, from upstream to downstream, by
/// what its cells say now. Each row tells how far it is to the next one; one that does not counts
/// as no distance.
std::vector<ProfilePoint> BedProfile(const Sheet& xsects);

}  // namespace lomaris

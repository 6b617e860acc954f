#include "editors/bed_profile.h"

#include <algorithm>

#include "editors/typed_values.h"
#include "editors/xsect_sheet.h"

namespace lomaris {
namespace {

std::optional<double> NumberIn(const Sheet& sheet, int row, int col) {
  const std::string& text = sheet.TextMatrix(row, col);
  return IsNumeric(text) ? std::optional(ToDouble(text)) : std::nullopt;
}

}  // namespace

std::vector<ProfilePoint> BedProfile(const Sheet& xsects) {
  std::vector<ProfilePoint> points;
  double distance = 0;
  const int end = xsects.FixedRows() + FilledRows(xsects);
  for (int row = xsects.FixedRows(); row < end; ++row) {
    ProfilePoint point{.Row = row, .Distance = distance};
    point.Invert = NumberIn(xsects, row, kInvertCol);
    const std::optional<double> depth = NumberIn(xsects, row, kDepthCol);
    if (point.Invert && depth) point.Surface = *point.Invert + *depth;
    points.push_back(point);
    distance += std::max(0.0, NumberIn(xsects, row, kLengthCol).value_or(0));
  }
  return points;
}

}  // namespace lomaris

#include "auxiliary/aux_load.h"

#include <limits>

#include <fmt/format.h>

#include "auxiliary/xsect_names.h"
#include "model/input_file.h"

namespace lomaris {

std::int32_t CheckedTimes(std::int32_t count) {
  return CheckedCount(count, std::numeric_limits<std::int32_t>::max());
}

std::int32_t CheckedXSects(std::int32_t count) {
  return CheckedCount(count, kMostNodes);
}

std::uint8_t CheckedByte(std::int16_t value) {
  if (value < 0 || value > std::numeric_limits<std::uint8_t>::max()) {
    throw RuntimeError(ErrorNumber::Overflow, fmt::format("{} is not within 0 to 255", value));
  }
  return static_cast<std::uint8_t>(value);
}

bool MarkNode(const AuxXSect& xsect, const AuxLoad& load) {
  if (xsect.Node >= 1 && xsect.Node <= kMostNodes) {
    load.Aux.ActiveNode[xsect.Node] = true;
    return true;
  }
  load.Around.Screen.ShowMessage(
      {.Text = fmt::format("Node number {} was found in this auxiliary file. This is outside the "
                           "range of node numbers found in the HNP file (1 to {}). This probably "
                           "occurred because the LAT file was editted outside of Lomaris or "
                           "because this auxiliary file is from a different modeling project.",
                           xsect.Node, NodeNames(load.Around.Hydro).size()),
       .Title = "Error"});
  return false;
}

}  // namespace lomaris

#include "auxiliary/aux_data.h"

#include <cmath>

#include "core/cell_limit.h"
#include "core/tables.h"
#include "core/text.h"

namespace lomaris {

std::string KindOf(const AuxData& aux) {
  return TypeKey(Trim(aux.FileName));  // as the file is found by its name without blanks
}

std::int32_t MaxSteps(const AuxData& aux) {
  // Two columns of a grid hold the row's number and its date.
  const std::int64_t columns = 2 + Max<std::int64_t>(aux.NumXSect, std::int64_t{aux.NumConst} + 1);
  const double steps = static_cast<double>(kMostCells) / static_cast<double>(columns);
  return static_cast<std::int32_t>(std::nearbyint(steps));  // an exact half to the even neighbour
}

void MarkNodesOfEntries(AuxData& aux) {
  for (std::int64_t node = 1; node <= kMostNodes; ++node) aux.ActiveNode[node] = false;
  for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
    const std::int32_t node = aux.XSect[i].Node;
    if (node >= 1 && node <= kMostNodes) aux.ActiveNode[node] = true;
  }
}

}  // namespace lomaris

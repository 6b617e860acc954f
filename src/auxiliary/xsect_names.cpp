#include "auxiliary/xsect_names.h"

#include "core/tables.h"

namespace lomaris {

bool ReadNames(const AuxLoad& load) {
  const bool hasIntakes = TypeKey(load.Aux.FileName) == "POW";
  for (std::int32_t i = 1; i <= load.Aux.NumXSect && !load.In.AtEnd(); ++i) {
    load.Aux.XSect[i].Name = load.In.ReadWhole();
    if (hasIntakes) load.Aux.XSect[i].IntakeName = load.In.ReadWhole();
  }
  return true;
}

}  // namespace lomaris

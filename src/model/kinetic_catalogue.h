#pragma once

#include <string>

#include "core/bounded_array.h"
#include "core/ports/ui.h"
#include "model/qual_input.h"

namespace lomaris {

/// One coefficient of the water quality model.
struct KineticParameter {
  int GridRow = 0;      ///< row of the grid that shows it, from 1: grids have an order of their own
  std::string Name;     ///< label of the row
  std::string Units;    ///< may be empty
  std::string Typical;  ///< a value or a range, as text; may be empty
  std::string Mnemonic;  ///< its name in the model
  float Default = 0;     ///< what a new file has
};

/// The vocabulary of the water quality model: what each coefficient of `QualInput` means. A
/// parameter has the position of its value in the record's array and in the file.
struct KineticCatalogue {
  BoundedArray<KineticParameter> Global{1, kGlobalKinetics};
  BoundedArray<KineticParameter> Branch{1, kBranchKinetics};
  BoundedArray<KineticParameter> XSect{1, kXSectKinetics};
};

/// Builds the catalogue. Called when the water quality editor opens.
KineticCatalogue BuildCatalogue(Ui& ui);

}  // namespace lomaris

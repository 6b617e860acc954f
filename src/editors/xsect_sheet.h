#pragma once

#include <optional>
#include <vector>

#include "core/ports/ui.h"
#include "model/hydro_input.h"
#include "model/xsect_library.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

// Columns of the hydrodynamic editor's `ssXSect`: those of the texts, and of the numbers those that
// the bed profile is drawn from.
inline constexpr int kXSectNameCol = 1;
inline constexpr int kPrintCol = 2;
inline constexpr int kLookupCol = 3;
inline constexpr int kLengthCol = 4;
inline constexpr int kDepthCol = 6;
inline constexpr int kInvertCol = 8;

/// An empty grid of cross sections. It asks through `ui`, which outlives it, before rows are
/// inserted or deleted.
void SetUpXSects(Sheet& sheet, Ui& ui);

/// Clears the grid and fills it, with an empty row ready at the end.
void FillXSects(Sheet& sheet, const BranchRec& branch);

/// The cross sections in the rows of the grid, up to the last one that is not empty. `before` is
/// the branch as it was: a number that still shows what it was is taken from there. Nothing, having
/// told it, when a row makes no cross section.
std::optional<std::vector<XSectRec>> XSectsIn(const Sheet& sheet, const BranchRec& before, Ui& ui);

/// The rows whose lookup names the library does not hold. Without a library there are none.
std::vector<int> RowsWithUnknownLookup(const Sheet& sheet, const XSectLibrary& library);

}  // namespace lomaris

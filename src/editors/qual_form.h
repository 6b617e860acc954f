#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/ports/ui.h"
#include "model/hydro_input.h"
#include "model/qual_input.h"

namespace lomaris {

/// What stands in the fields of the water quality editor but for those of a branch.
struct QualForm {
  std::string Description;  ///< `txtDescriptionQ`
  ModelDateTime StartDate = 0;
  ModelDateTime EndDate = 0;
  std::string SimPeriod;  ///< `txtSimPeriod`, that of the hydrodynamic simulation; shown only
  std::string LatFile;
  std::string PowFile;
  std::vector<std::string> MetFiles;                    ///< entries of `cboMetFileQ`
  int MetFile = -1;                                     ///< the selected one, from 0; -1 for none
  std::array<bool, kQualConstituents> Calculated = {};  ///< checks of `lstModelParameters`

  bool operator==(const QualForm&) const = default;
};

QualForm FormOf(const QualInput& qual, const HydroInput& hydro);

/// Takes the fields into the record. A file name that shows what the record has leaves it as it is.
void StoreForm(const QualForm& form, QualInput& qual);

/// The boundary files of a branch, as their fields show them.
struct QualBranchForm {
  std::string USFile;
  std::string DSFile;
  bool NeedsUSFile = false;  ///< the field is enabled
  bool NeedsDSFile = false;

  bool operator==(const QualBranchForm&) const = default;
};

/// A field without a file says, in brackets, why there is none.
QualBranchForm BranchFormOf(const QualInput& qual, const HydroInput& hydro, int branch);

/// What `shown` had and `form` has still leaves the record as it is.
void StoreBranchFields(const QualBranchForm& form, const QualBranchForm& shown,
                       QualBranchRec& record);

/// The empty choice of a boundary field's pop-up.
inline constexpr const char* kNoneSelected = "(None Selected)";

}  // namespace lomaris

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/ports/ui.h"
#include "model/hydro_input.h"

namespace lomaris {

/// What stands in the fields of the hydrodynamic editor but for those of a branch.
struct HydroForm {
  std::string Description;  ///< `txtDescriptionH`
  ModelDateTime StartDate = 0;
  ModelDateTime EndDate = 0;
  std::string SimPeriod;  ///< `txtSimPeriod`; shown only
  std::string Theta;
  std::string Tolerance;
  std::string Beta;
  std::string MileAtBottom;
  std::string Gravity;
  std::string SeedYear;
  std::string LatFile;
  std::string WitFile;
  std::string XSGFile;

  bool operator==(const HydroForm&) const = default;
};

/// "start to end".
std::string SimPeriodText(ModelDateTime start, ModelDateTime end);

HydroForm FormOf(const HydroInput& hydro);

/// False, having told it, when a field cannot be taken; the record is then as it was.
bool StoreForm(const HydroForm& form, HydroInput& hydro, Ui& ui);

// Entries of `cboUSType` and `cboDSType`, in order.
inline constexpr const char* kUSTypes[] = {"Flow", "Stage"};
inline constexpr const char* kDSTypes[] = {"Flow", "Depth", "Rating Curve", "Rating Table"};
// What the record has for them.
inline constexpr std::string_view kUSLetters = "QH";
inline constexpr std::string_view kDSLetters = "QHRT";
// Units of their constant values.
inline constexpr const char* kUSUnits[] = {"cfs", "ft msl"};
inline constexpr const char* kDSUnits[] = {"cfs", "ft", "", ""};
inline constexpr int kDSFlow = 0;
inline constexpr int kDSRatingCurve = 2;

/// What the downstream type makes of its fields.
struct DownstreamLook {
  const char* AngleLabel;  ///< `lblConflAngle`
  const char* AngleTip;
  const char* AngleUnit;
  const char* ValueLabel;  ///< `lblDSValue`
  const char* ValueTip;
  bool OffersFile;  ///< the boundary file field and its buttons are enabled
};
const DownstreamLook& LookOf(int dsType);

/// What stands in the fields of a branch. Selected entries count from 0, -1 for none: what no entry
/// shows stays in the record as it is.
struct BranchForm {
  int USType = -1;
  std::string USValue;
  std::string USFile;
  int DSType = -1;
  std::string DSAngle;  ///< the angle field, which holds a of a rating curve
  std::string DSValue;  ///< the value field, which holds b of a rating curve
  std::string DSFile;
  std::vector<std::string> DSBranches;  ///< entries of `cboDSBranch`
  int DSBranch = -1;
  bool XSectNameVisible = false;        ///< of `cboXSectName` and its label
  std::vector<std::string> XSectNames;  ///< entries of `cboXSectName`
  int XSectName = -1;
  bool CanEditDSValue = true;

  bool operator==(const BranchForm&) const = default;
};

BranchForm BranchFormOf(const HydroInput& hydro, int branch);

/// Offers the cross sections of the branch that is selected as the receiving one, and selects
/// number `xsect`.
void OfferXSects(BranchForm& form, const HydroInput& hydro, int branch, int xsect);

/// The number of the branch that an entry of `cboDSBranch` stands for; 0 for the first entry.
int DSBranchAt(int entry, int branch);

/// Takes the fields of a branch, but not its grid. False, having told it, when a field cannot be
/// taken; the record is then as it was.
bool StoreBranchFields(const BranchForm& form, int branch, BranchRec& record, Ui& ui);

}  // namespace lomaris

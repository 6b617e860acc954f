#include "editors/hydro_form.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "editors/typed_values.h"
#include "spreadsheet/cell_checks.h"

namespace lomaris {
namespace {

/// The entry of a type's letter; -1 for a letter that is none.
int EntryOf(std::string_view letters, char type) {
  const std::size_t place = letters.find(type);
  return place == std::string_view::npos ? -1 : static_cast<int>(place);
}

void TakeType(char& type, std::string_view letters, int entry) {
  if (entry >= 0) type = letters[static_cast<std::size_t>(entry)];
}

int EntryOfDSBranch(int number, int branch, int count) {
  if (number == branch || number < 0 || number > count) return -1;
  return number < branch ? number : number - 1;
}

}  // namespace

std::string SimPeriodText(ModelDateTime start, ModelDateTime end) {
  return FormatDate(start, kCellDateMask) + " to " + FormatDate(end, kCellDateMask);
}

HydroForm FormOf(const HydroInput& hydro) {
  return {.Description = hydro.Title,
          .StartDate = hydro.StartDate,
          .EndDate = hydro.EndDate,
          .SimPeriod = SimPeriodText(hydro.StartDate, hydro.EndDate),
          .Theta = NumberText(hydro.Theta),
          .Tolerance = NumberText(hydro.Tolerance),
          .Beta = NumberText(hydro.Beta),
          .MileAtBottom = NumberText(hydro.MileAtBottom),
          .Gravity = NumberText(hydro.Gravity),
          .SeedYear = NumberText(hydro.SeedYear),
          .LatFile = ShownFile(hydro.LatFile),
          .WitFile = ShownFile(hydro.WitFile),
          .XSGFile = ShownFile(hydro.XSGFile)};
}

bool StoreForm(const HydroForm& form, HydroInput& hydro, Ui& ui) {
  HydroInput taken = hydro;
  for (const std::string* field : {&form.Theta, &form.Tolerance, &form.Beta, &form.MileAtBottom,
                                   &form.Gravity, &form.SeedYear}) {
    if (!Trim(*field).empty()) continue;
    ui.ShowMessage(
        {.Text = "A run parameter is missing; please enter a number.", .Title = "Error"});
    return false;
  }
  if (!TakeNumber(taken.Theta, form.Theta, "Theta", ui) ||
      !TakeNumber(taken.Tolerance, form.Tolerance, "Tolerance", ui) ||
      !TakeNumber(taken.Beta, form.Beta, "Beta", ui) ||
      !TakeNumber(taken.MileAtBottom, form.MileAtBottom, "Mile at bottom", ui) ||
      !TakeNumber(taken.Gravity, form.Gravity, "Gravity", ui) ||
      !TakeNumber(taken.SeedYear, form.SeedYear, "Seed year", ui)) {
    return false;
  }
  taken.Title = form.Description;
  taken.StartDate = form.StartDate;
  taken.EndDate = form.EndDate;
  TakeFile(taken.LatFile, form.LatFile);
  TakeFile(taken.WitFile, form.WitFile);
  TakeFile(taken.XSGFile, form.XSGFile);
  hydro = std::move(taken);
  return true;
}

const DownstreamLook& LookOf(int dsType) {
  static constexpr DownstreamLook kConstant = {
      "Confluence &Angle:",
      "Deflection angle at the confluence, in degrees",
      "degrees",
      "Constant &Value:",
      "Constant downstream value, used where no boundary file is named",
      true};
  static constexpr DownstreamLook kRatingCurve = {
      "Coef a i&n H=aQ^b:", "Coefficient 'a' in rating curve equation H = a Q^b", "",
      "Exp &b in H=aQ^b:",  "Exponent 'b' in rating curve equation H = a Q^b",    false};
  return dsType == kDSRatingCurve ? kRatingCurve : kConstant;
}

int DSBranchAt(int entry, int branch) {
  return entry < branch ? entry : entry + 1;
}

void OfferXSects(BranchForm& form, const HydroInput& hydro, int branch, int xsect) {
  const int number = form.DSBranch > 0 ? DSBranchAt(form.DSBranch, branch) : 0;
  form.XSectNameVisible = number > 0;
  form.CanEditDSValue = number == 0;
  form.XSectNames.clear();
  form.XSectName = -1;
  if (number == 0) return;
  const BranchRec& receiving = hydro.Branches[number];
  for (int i = 1; i <= receiving.XSectCount; ++i) {
    form.XSectNames.push_back(receiving.XSects[i].Name);
  }
  if (xsect >= 1 && xsect <= receiving.XSectCount) form.XSectName = xsect - 1;
}

BranchForm BranchFormOf(const HydroInput& hydro, int branch) {
  const BranchRec& record = hydro.Branches[branch];
  BranchForm form;
  form.USType = EntryOf(kUSLetters, record.USType);
  form.USValue = NumberText(record.USValue);
  form.USFile = ShownFile(record.USFile);
  form.DSType = EntryOf(kDSLetters, record.DSType);
  form.DSAngle = NumberText(record.DSAngle);
  form.DSValue = NumberText(record.DSValue);
  form.DSFile = ShownFile(record.DSFile);
  form.DSBranches = {"(None: this is downstream-most branch in system.)"};
  form.DSBranch = EntryOfDSBranch(record.DSBranch, branch, hydro.BranchCount);
  // The record keeps a of a rating curve as the value and b as the angle; on the screen a comes
  // first, and so stands in the field of the angle.
  if (form.DSType == kDSRatingCurve) std::swap(form.DSAngle, form.DSValue);
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    if (i != branch) form.DSBranches.push_back(hydro.Branches[i].Name);
  }
  OfferXSects(form, hydro, branch, record.DSXSect);
  return form;
}

bool StoreBranchFields(const BranchForm& form, int branch, BranchRec& record, Ui& ui) {
  BranchRec taken = record;
  // Crosswise for a rating curve, as they are shown.
  const bool isCurve = form.DSType == kDSRatingCurve;
  const DownstreamLook& look = LookOf(form.DSType);
  const auto plain = [](std::string_view label) { return ReplaceAll(label, "&", ""); };
  float& inAngleField = isCurve ? taken.DSValue : taken.DSAngle;
  float& inValueField = isCurve ? taken.DSAngle : taken.DSValue;
  if (!TakeNumber(taken.USValue, form.USValue, "upstream", ui) ||
      !TakeNumber(inAngleField, form.DSAngle, plain(look.AngleLabel), ui) ||
      !TakeNumber(inValueField, form.DSValue, plain(look.ValueLabel), ui)) {
    return false;
  }
  TakeType(taken.USType, kUSLetters, form.USType);
  TakeType(taken.DSType, kDSLetters, form.DSType);
  TakeFile(taken.USFile, form.USFile);
  TakeFile(taken.DSFile, form.DSFile);
  if (form.DSBranch >= 0) {
    const auto number = static_cast<std::int16_t>(DSBranchAt(form.DSBranch, branch));
    if (number == 0 || number != record.DSBranch) taken.DSXSect = 0;
    taken.DSBranch = number;
  }
  if (form.XSectName >= 0) taken.DSXSect = form.XSectName + 1;
  record = std::move(taken);
  return true;
}

}  // namespace lomaris

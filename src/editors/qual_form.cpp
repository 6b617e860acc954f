#include "editors/qual_form.h"

#include "editors/hydro_form.h"
#include "editors/typed_values.h"

namespace lomaris {
namespace {

constexpr const char* kNotDownstreamMost =
    "(BCF file not used: this is NOT downstream-most branch in system.)";
constexpr const char* kPleaseSpecify = "(Please specify boundary condition file)";

/// The number of a branch that discharges into the first cross section of this one; 0 for none.
int BranchAbove(const HydroInput& hydro, int branch) {
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    if (hydro.Branches[i].DSBranch == branch && hydro.Branches[i].DSXSect == 1) return i;
  }
  return 0;
}

/// A file that is named is shown also where it is not used: it is not to go unseen.
std::string ShownBoundary(const std::string& file, const std::string& remark) {
  const std::string name = FileIn(file);
  return name.empty() ? remark : name;
}

}  // namespace

QualForm FormOf(const QualInput& qual, const HydroInput& hydro) {
  QualForm form;
  form.Description = qual.Title;
  form.StartDate = qual.StartDate;
  form.EndDate = qual.EndDate;
  form.SimPeriod = SimPeriodText(hydro.StartDate, hydro.EndDate);
  form.LatFile = ShownFile(qual.LatFile);
  form.PowFile = ShownFile(qual.PowFile);
  for (int i = 1; i <= qual.MetCount; ++i) form.MetFiles.push_back(qual.MetFiles[i]);
  form.MetFile = form.MetFiles.empty() ? -1 : 0;
  for (int i = 1; i <= kQualConstituents; ++i) {
    form.Calculated[static_cast<std::size_t>(i - 1)] = !qual.Bypass[i];
  }
  return form;
}

void StoreForm(const QualForm& form, QualInput& qual) {
  qual.Title = form.Description;
  qual.StartDate = form.StartDate;
  qual.EndDate = form.EndDate;
  TakeFile(qual.LatFile, form.LatFile);
  TakeFile(qual.PowFile, form.PowFile);
  qual.MetCount = static_cast<std::int16_t>(form.MetFiles.size());
  for (int i = 1; i <= kMostMetFiles; ++i) {
    qual.MetFiles[i] = i <= qual.MetCount ? form.MetFiles[static_cast<std::size_t>(i - 1)] : "";
  }
  for (int i = 1; i <= kQualConstituents; ++i) {
    qual.Bypass[i] = !form.Calculated[static_cast<std::size_t>(i - 1)];
  }
}

QualBranchForm BranchFormOf(const QualInput& qual, const HydroInput& hydro, int branch) {
  const QualBranchRec& record = qual.Branches[branch];
  const int above = BranchAbove(hydro, branch);
  const bool flowsOn = hydro.Branches[branch].DSBranch != 0;
  const std::string inside =
      above == 0 ? std::string()
                 : "(BCF file not used: connects as internal boundary condition to '" +
                       hydro.Branches[above].Name + "')";
  return {.USFile = ShownBoundary(record.USFile, above == 0 ? kPleaseSpecify : inside),
          .DSFile = ShownBoundary(record.DSFile, flowsOn ? kNotDownstreamMost : kPleaseSpecify),
          .NeedsUSFile = above == 0,
          .NeedsDSFile = !flowsOn};
}

void StoreBranchFields(const QualBranchForm& form, const QualBranchForm& shown,
                       QualBranchRec& record) {
  if (form.USFile != shown.USFile) record.USFile = FileIn(form.USFile);
  if (form.DSFile != shown.DSFile) record.DSFile = FileIn(form.DSFile);
}

}  // namespace lomaris

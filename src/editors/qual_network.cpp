#include "editors/qual_network.h"

#include <algorithm>
#include <utility>

namespace lomaris {
namespace {

// Positions of the coefficients that choose a formula of reaeration.
constexpr int kCovar = 36;             ///< of the global group
constexpr int kConstantRate = 14;      ///< of a cross section
constexpr int kOConnorDobbins = 15;    ///< of a cross section
constexpr int kTsivoglouWallace = 18;  ///< of a cross section

BoundedArray<float> DefaultsOf(const BoundedArray<KineticParameter>& parameters) {
  BoundedArray<float> values(1, parameters.UpperBound());
  for (std::int64_t i = 1; i <= values.UpperBound(); ++i) values[i] = parameters[i].Default;
  return values;
}

QualXSectRec NewXSect(const XSectRec& xsect, const KineticCatalogue& catalogue) {
  QualXSectRec record{.Name = xsect.Name, .Print = xsect.Print};
  record.XSectKinetics = DefaultsOf(catalogue.XSect);
  return record;
}

QualBranchRec NewBranch(const BranchRec& branch, const KineticCatalogue& catalogue) {
  QualBranchRec record;
  record.Name = branch.Name;
  record.XSectCount = branch.XSectCount;
  record.BranchKinetics = DefaultsOf(catalogue.Branch);
  record.XSects.Resize(branch.XSectCount);
  for (int i = 1; i <= branch.XSectCount; ++i) {
    record.XSects[i] = NewXSect(branch.XSects[i], catalogue);
  }
  return record;
}

const QualXSectRec* Find(const QualBranchRec& branch, const std::string& name) {
  const auto found = std::ranges::find(branch.XSects, name, &QualXSectRec::Name);
  return found == branch.XSects.end() ? nullptr : &*found;
}

void FollowBranch(QualBranchRec& record, const BranchRec& branch,
                  const KineticCatalogue& catalogue) {
  if (record.XSectCount == 0) {
    QualBranchRec fresh = NewBranch(branch, catalogue);
    fresh.USFile = record.USFile;
    fresh.DSFile = record.DSFile;
    record = std::move(fresh);
    return;
  }
  const QualBranchRec before = record;
  const QualXSectRec* like = &before.XSects[1];
  for (int i = 1; i <= branch.XSectCount; ++i) {  // the first one is like the first that stays
    const QualXSectRec* found = Find(before, branch.XSects[i].Name);
    if (found == nullptr) continue;
    like = found;
    break;
  }
  record.XSectCount = branch.XSectCount;
  record.XSects.Resize(branch.XSectCount);
  for (int i = 1; i <= branch.XSectCount; ++i) {
    const QualXSectRec* found = Find(before, branch.XSects[i].Name);
    if (found != nullptr) like = found;
    record.XSects[i] = *like;
    record.XSects[i].Name = branch.XSects[i].Name;
  }
}

/// Whether `work` holds for each name of the record and the network's of the same place.
template <class Qual, class Work>
bool AllNames(Qual& qual, const HydroInput& hydro, Work&& work) {
  for (int b = 1; b <= qual.BranchCount; ++b) {
    auto& branch = qual.Branches[b];
    if (!work(branch.Name, hydro.Branches[b].Name)) return false;
    for (int i = 1; i <= branch.XSectCount; ++i) {
      if (!work(branch.XSects[i].Name, hydro.Branches[b].XSects[i].Name)) return false;
    }
  }
  return true;
}

}  // namespace

QualInput NewQualInput(const HydroInput& hydro, const ProjectData& project,
                       const KineticCatalogue& catalogue) {
  QualInput qual;
  qual.Title = "Created using " + hydro.FileName + "; " + hydro.Title;
  qual.StartDate = hydro.StartDate;
  qual.EndDate = hydro.EndDate;
  qual.PrintStepCount = hydro.PrintStepCount;
  qual.PrintSteps = hydro.PrintSteps;
  qual.LatFile = project.LatFileQ;
  qual.PowFile = project.PowFileQ;
  qual.MetCount = project.MetCount;
  qual.MetFiles = project.MetFiles;
  qual.GlobalKinetics = DefaultsOf(catalogue.Global);
  FollowNetwork(qual, hydro, catalogue);
  for (int i = 1; i <= qual.BranchCount && i <= project.BCFilesQ.UpperBound(); ++i) {
    qual.Branches[i].USFile = project.BCFilesQ[i].Upstream;
    qual.Branches[i].DSFile = project.BCFilesQ[i].Downstream;
  }
  return qual;
}

bool FitsNetwork(const QualInput& qual, const HydroInput& hydro) {
  if (qual.BranchCount != hydro.BranchCount) return false;
  for (int i = 1; i <= qual.BranchCount; ++i) {
    if (qual.Branches[i].XSectCount != hydro.Branches[i].XSectCount) return false;
  }
  return true;
}

void FollowNetwork(QualInput& qual, const HydroInput& hydro, const KineticCatalogue& catalogue) {
  for (int i = qual.BranchCount + 1; i <= hydro.BranchCount; ++i) qual.Branches[i] = {};
  qual.BranchCount = hydro.BranchCount;
  for (int i = 1; i <= qual.BranchCount; ++i) {
    FollowBranch(qual.Branches[i], hydro.Branches[i], catalogue);
  }
}

bool HasNetworkNames(const QualInput& qual, const HydroInput& hydro) {
  return AllNames(qual, hydro, [](const std::string& mine, const std::string& networks) {
    return mine == networks;
  });
}

void TakeNetworkNames(QualInput& qual, const HydroInput& hydro) {
  AllNames(qual, hydro, [](std::string& mine, const std::string& networks) {
    mine = networks;
    return true;
  });
}

std::string ReaerationFormula(const BoundedArray<float>& global, const BoundedArray<float>& branch,
                              const BoundedArray<float>& xsect) {
  std::string formula = "None";
  if (global[kCovar] == 1) formula = "Covar";
  if (xsect[kTsivoglouWallace] != 0) formula = "T-W";
  if (xsect[kOConnorDobbins] != 0) formula = "O-D";
  if (xsect[kConstantRate] != 0) formula = "Fixed";
  return branch[kWindReaeration] == 1 ? formula + ", Wind" : formula;
}

}  // namespace lomaris

#include "editors/qual_network.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "core/text.h"

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

using Names = std::vector<std::string>;

/// Gives cross sections with other names, between two that stay, the places of as many that are
/// gone from there.
void PlaceRenamed(std::vector<int>& places, const std::set<int>& gone, int countBefore) {
  const int count = static_cast<int>(places.size());
  const auto at = [&](int i) -> int& { return places[static_cast<std::size_t>(i)]; };
  for (int first = 0; first < count; ++first) {
    int end = first;
    while (end < count && at(end) < 0) ++end;
    const int from = first == 0 ? 0 : at(first - 1) + 1;
    const int to = end == count ? countBefore : at(end);
    if (end > first && to - from == end - first && gone.contains(from) &&
        std::distance(gone.find(from), gone.lower_bound(to)) == to - from) {
      for (int i = first; i < end; ++i) at(i) = from + i - first;
    }
    first = end;
  }
}

/// For each cross section the place, from 0, that it had before; -1 for a new one. Those with the
/// same name keep their order.
std::vector<int> PlacesBefore(const Names& before, const Names& now) {
  std::multimap<std::string_view, int> left;
  std::set<int> gone;
  for (int i = 0; i < std::ssize(before); ++i) {
    left.emplace(before[static_cast<std::size_t>(i)], i);
    gone.insert(i);
  }
  std::vector<int> places;
  for (const std::string& name : now) {
    const auto found = left.lower_bound(name);
    const bool stays = found != left.end() && found->first == name;
    places.push_back(stays ? found->second : -1);
    if (!stays) continue;
    gone.erase(found->second);
    left.erase(found);
  }
  PlaceRenamed(places, gone, static_cast<int>(before.size()));
  return places;
}

Names XSectNames(const BranchRec& branch) {
  Names names;
  for (int i = 1; i <= branch.XSectCount; ++i) names.push_back(branch.XSects[i].Name);
  return names;
}

void FollowBranch(QualBranchRec& record, const Names& before, const BranchRec& branch,
                  const KineticCatalogue& catalogue) {
  if (record.XSectCount == 0) {
    QualBranchRec fresh = NewBranch(branch, catalogue);
    fresh.USFile = record.USFile;
    fresh.DSFile = record.DSFile;
    record = std::move(fresh);
    return;
  }
  const std::vector<int> places = PlacesBefore(before, XSectNames(branch));
  const auto first = std::ranges::find_if(places, [](int place) { return place >= 0; });
  int like = first == places.end() ? 0 : *first;  // the first one is like the first that stays
  const BoundedArray<QualXSectRec> xsects = record.XSects;
  record.XSectCount = branch.XSectCount;
  record.XSects.Resize(branch.XSectCount);
  for (int i = 1; i <= branch.XSectCount; ++i) {
    const int place = places[static_cast<std::size_t>(i - 1)];
    if (place >= 0) like = place;
    record.XSects[i] = xsects[like + 1];
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
  FollowNetwork(qual, {}, hydro, catalogue);
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

NetworkNames NamesOf(const HydroInput& hydro) {
  NetworkNames names{hydro.FileName, {}};
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    names.XSects.push_back(XSectNames(hydro.Branches[i]));
  }
  return names;
}

bool KeepsPlaces(const NetworkNames& before, const NetworkNames& now) {
  for (std::size_t i = 0; i < Min(before.XSects.size(), now.XSects.size()); ++i) {
    if (before.XSects[i] == now.XSects[i]) continue;
    for (int place = 0; const int placeBefore : PlacesBefore(before.XSects[i], now.XSects[i])) {
      if (placeBefore != place++) return false;
    }
  }
  return true;
}

/// More than twenty branches are followed as well: the limit is that of the network's reader.
void FollowNetwork(QualInput& qual, const NetworkNames& before, const HydroInput& hydro,
                   const KineticCatalogue& catalogue) {
  QualInput next = qual;
  next.Branches.Resize(Max<std::int64_t>(kMostBranches, hydro.BranchCount));
  for (int i = qual.BranchCount + 1; i <= hydro.BranchCount; ++i) next.Branches[i] = {};
  next.BranchCount = hydro.BranchCount;
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    const auto place = static_cast<std::size_t>(i - 1);
    const Names names = place < before.XSects.size() ? before.XSects[place] : Names();
    FollowBranch(next.Branches[i], names, hydro.Branches[i], catalogue);
  }
  qual = std::move(next);
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

#include "editors/lookup_names.h"

#include <algorithm>

#include "editors/xsect_sheet.h"

namespace lomaris {
namespace {

bool Follows(const std::vector<std::string>& xsects, const std::string& name) {
  return xsects.empty() || std::ranges::binary_search(xsects, name);
}

}  // namespace

bool LooksUp(const HydroInput& hydro, const std::string& section) {
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    const auto& xsects = hydro.Branches[i].XSects;
    if (std::ranges::any_of(xsects, [&](const auto& each) { return each.Lookup == section; })) {
      return true;
    }
  }
  return false;
}

std::vector<std::string> RenameLookups(HydroInput& hydro, const std::string& from,
                                       const std::string& to,
                                       const std::vector<std::string>& xsects) {
  std::vector<std::string> renamed;
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    for (XSectRec& xsect : hydro.Branches[i].XSects) {
      if (xsect.Lookup != from || !Follows(xsects, xsect.Name)) continue;
      xsect.Lookup = to;
      renamed.push_back(xsect.Name);
    }
  }
  std::ranges::sort(renamed);
  return renamed;
}

void RenameLookups(Sheet& sheet, const std::string& from, const std::string& to,
                   const std::vector<std::string>& xsects) {
  for (int row = sheet.FixedRows(); row < sheet.Rows(); ++row) {
    if (sheet.TextMatrix(row, kLookupCol) != from) continue;
    if (Follows(xsects, sheet.TextMatrix(row, kXSectNameCol))) {
      sheet.SetTextMatrix(row, kLookupCol, to);
    }
  }
}

void RenameSections(XSectLibrary& library, const std::string& from, const std::string& to) {
  for (LibrarySection& section : library.XSects) {
    if (section.Name == from) section.Name = to;
  }
}

}  // namespace lomaris

#include "editors/lookup_names.h"

#include "editors/xsect_sheet.h"

namespace lomaris {

bool RenameLookups(HydroInput& hydro, const std::string& from, const std::string& to) {
  bool renamed = false;
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    for (XSectRec& xsect : hydro.Branches[i].XSects) {
      if (xsect.Lookup != from) continue;
      xsect.Lookup = to;
      renamed = true;
    }
  }
  return renamed;
}

void RenameLookups(Sheet& xsects, const std::string& from, const std::string& to) {
  xsects.AsStep([&] {
    bool renamed = false;
    for (int row = xsects.FixedRows(); row < xsects.Rows(); ++row) {
      if (xsects.TextMatrix(row, kLookupCol) != from) continue;
      xsects.SetTextMatrix(row, kLookupCol, to);
      renamed = true;
    }
    return renamed;
  });
}

void RenameSections(XSectLibrary& library, const std::string& from, const std::string& to) {
  for (LibrarySection& section : library.XSects) {
    if (section.Name == from) section.Name = to;
  }
}

}  // namespace lomaris

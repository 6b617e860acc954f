#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/bounded_array.h"

namespace lomaris {

inline constexpr int kMostBranches = 20;
inline constexpr int kMostMetFiles = 5;
inline constexpr int kMostOtherFiles = 50;

/// What windows and records hold for "no file"; on disk it is "NULL".
inline constexpr std::string_view kNotSpecified = "(Not Specified)";

/// Boundary condition files of one branch.
struct BranchBCFiles {
  std::string Upstream;
  std::string Downstream;

  bool operator==(const BranchBCFiles&) const = default;
};

/// A project: the names of the files of one model. It is the one authority on the names of
/// auxiliary files; the readers of the model files take them from here.
struct ProjectData {
  bool Dirty = false;       ///< unsaved changes
  std::string FileName;     ///< the project file
  std::string Description;  ///< free text, may hold line breaks
  std::string HydroFile;    ///< hydrodynamic input
  std::string QualFile;     ///< water quality input
  std::string LatFileH;     ///< lateral inflows, hydrodynamic side
  std::string WitFileH;     ///< withdrawals
  std::string XSGFileH;     ///< cross section library
  std::string LatFileQ;     ///< lateral inflows, water quality side
  std::string PowFileQ;     ///< heat loads
  std::int16_t MetCount = 0;
  BoundedArray<std::string> MetFiles{1, kMostMetFiles};  ///< meteorology
  std::int16_t BCCountH = 0;  ///< highest branch with a boundary file, hydrodynamic side
  BoundedArray<BranchBCFiles> BCFilesH{1, kMostBranches};  ///< by branch
  std::int16_t BCCountQ = 0;                               ///< the same, water quality side
  BoundedArray<BranchBCFiles> BCFilesQ{1, kMostBranches};  ///< by branch
  std::int16_t OtherCount = 0;
  BoundedArray<std::string> OtherFiles{1, kMostOtherFiles};  ///< files that the model ignores

  bool operator==(const ProjectData&) const = default;
};

}  // namespace lomaris

#pragma once

#include <cstdint>
#include <string>

#include "core/bounded_array.h"
#include "core/dates.h"
#include "core/files.h"
#include "model/hydro_input.h"
#include "model/project_data.h"

namespace lomaris {

/// Constituents that water quality is simulated for: positions 2 to 17 of the table of
/// constituents, Temp to Arb-2. What is kept by constituent stands in this order, from 1.
inline constexpr int kQualConstituents = 16;

// The coefficients are addressed by their positions; kinetic_catalogue.h tells what they mean.
inline constexpr int kGlobalKinetics = 36;
inline constexpr int kBranchKinetics = 43;
inline constexpr int kXSectKinetics = 18;

/// The last value of a branch is a logical: wind driven reaeration, 0 or 1.
inline constexpr int kWindReaeration = 43;

/// A branch with fewer cross sections has no water quality.
inline constexpr int kFewestXSects = 3;

/// Water quality at one cross section.
struct QualXSectRec {
  std::string Name;    ///< that of the file, which may differ from the network's
  bool Print = false;  ///< whether the model prints results here
  BoundedArray<float> InitialConc{1, kQualConstituents};  ///< in the constituents' units
  BoundedArray<float> LateralConc{1, kQualConstituents};  ///< of the distributed inflow
  BoundedArray<float> XSectKinetics{1, kXSectKinetics};

  bool operator==(const QualXSectRec&) const = default;
};

/// Water quality of one branch.
struct QualBranchRec {
  std::string Name;
  std::string USFile;           ///< upstream boundary condition file; a copy of the project's
  std::string DSFile;           ///< downstream boundary condition file; a copy of the project's
  std::int16_t XSectCount = 0;  ///< that of the network's branch
  BoundedArray<QualXSectRec> XSects;  ///< 1 to XSectCount, from upstream to downstream
  BoundedArray<float> BranchKinetics{1, kBranchKinetics};

  bool operator==(const QualBranchRec&) const = default;
};

/// The water quality input. Its branches and cross sections are those of `HydroInput`, in number
/// and order.
struct QualInput {
  bool Dirty = false;  ///< unsaved changes
  std::string FileName;
  std::string Title;  ///< one line of free text
  ModelDateTime StartDate = 0;
  ModelDateTime EndDate = 0;
  std::string LatFile;                                   ///< copy of the project's LatFileQ
  std::string PowFile;                                   ///< copy of the project's PowFileQ
  std::int16_t MetCount = 0;                             ///< copy of the project's
  BoundedArray<std::string> MetFiles{1, kMostMetFiles};  ///< copies of the project's
  BoundedArray<bool> Bypass{1, kQualConstituents};       ///< true: not simulated
  std::int16_t PrintStepCount = 0;
  BoundedArray<TimeStepEntry> PrintSteps{1, kMostTimeSteps};  ///< values in h
  BoundedArray<float> GlobalKinetics{1, kGlobalKinetics};
  std::int16_t BranchCount = 0;  ///< that of the network
  BoundedArray<QualBranchRec> Branches{1, kMostBranches};
  FileStamp OnDisk;  ///< the file as it was read or written last

  bool operator==(const QualInput&) const = default;
};

}  // namespace lomaris

#pragma once

#include <cstdint>
#include <string>

#include "core/bounded_array.h"
#include "core/dates.h"
#include "core/files.h"
#include "model/project_data.h"

namespace lomaris {

inline constexpr int kMostTimeSteps = 50;

/// From `Start` until the start of the next entry, `Value` holds.
struct TimeStepEntry {
  ModelDateTime Start = 0;
  float Value = 0;  ///< s for a computational time step, h for a print step

  bool operator==(const TimeStepEntry&) const = default;
};

/// One cross section of a branch.
struct XSectRec {
  std::string Name;    ///< 1 to 12 characters, unique in the network
  bool Print = false;  ///< whether the model prints results here
  std::string Lookup;  ///< 1 to 8 characters, name in the cross section library
  float Length = 0;    ///< ft, distance to the next cross section downstream
  float Flow = 0;      ///< cfs, initial flow
  float Depth = 0;     ///< ft, initial depth
  float Lateral = 0;   ///< cfs, distributed inflow
  float Invert = 0;    ///< ft msl, lowest point of the bed
  float ManningN = 0;  ///< Manning's roughness coefficient of the reach downstream
  float Loss = 0;      ///< energy loss coefficient of the reach downstream
  float N1 = 0;        ///< roughness by depth: n = N1 - N2 * depth
  float N2 = 0;
  float C1 = 0;  ///< flow area by depth H: A = C1 * H + C2 * H^C3
  float C2 = 0;
  float C3 = 0;

  bool operator==(const XSectRec&) const = default;
};

/// One branch of the network.
struct BranchRec {
  std::string Name;
  char USType = 'Q';          ///< upstream boundary: Q flow, H stage
  float USValue = 0;          ///< constant upstream value, cfs or ft msl by type
  std::string USFile;         ///< upstream boundary condition file; a copy of the project's
  std::int16_t DSBranch = 0;  ///< branch that this one flows into; 0: the last of the system
  std::int32_t DSXSect = 0;   ///< cross section of that branch at the confluence
  char DSType = 'Q';   ///< downstream boundary: Q flow, H depth, R rating curve, T rating table
  float DSValue = 0;   ///< constant downstream value, or a of the rating curve H = a Q^b
  float DSAngle = 0;   ///< deg, deflection at the confluence, or b of the rating curve
  std::string DSFile;  ///< downstream boundary condition file; a copy of the project's
  std::int16_t XSectCount = 0;
  BoundedArray<XSectRec> XSects;  ///< 1 to XSectCount, from upstream to downstream

  bool operator==(const BranchRec&) const = default;
};

/// The hydrodynamic input: run parameters, time steps and the network of branches.
struct HydroInput {
  bool Dirty = false;        ///< unsaved changes
  bool HydroLoaded = false;  ///< a hydrodynamic file is in memory
  std::string FileName;
  std::string Title;  ///< one line of free text
  ModelDateTime StartDate = 0;
  ModelDateTime EndDate = 0;
  std::string LatFile;        ///< copy of the project's LatFileH
  std::string WitFile;        ///< copy of the project's WitFileH
  std::string XSGFile;        ///< copy of the project's XSGFileH
  float Theta = 0;            ///< implicit weighting factor, 0.5 to 1
  float Tolerance = 0;        ///< ft, of the iteration
  float Beta = 0;             ///< momentum correction coefficient
  float MileAtBottom = 0;     ///< river mile of the network's last cross section downstream
  float Gravity = 0;          ///< ft/s2
  std::int16_t SeedYear = 0;  ///< the model counts its Julian dates from this year
  std::int16_t TimeStepCount = 0;
  BoundedArray<TimeStepEntry> TimeSteps{1, kMostTimeSteps};
  std::int16_t PrintStepCount = 0;
  BoundedArray<TimeStepEntry> PrintSteps{1, kMostTimeSteps};
  std::int16_t XSectCount = 0;  ///< of all branches; summed anew at every load and save
  std::int16_t BranchCount = 0;
  BoundedArray<BranchRec> Branches{1, kMostBranches};
  FileStamp OnDisk = {};  ///< the file as it was read or written last

  bool operator==(const HydroInput&) const = default;
};

}  // namespace lomaris

#pragma once

#include <string>
#include <string_view>

#include "core/bounded_array.h"
#include "core/ports/ui.h"

namespace lomaris {

/// The shared tables. An entry's position is a contract: columns of auxiliary files, import
/// mappings, grids and listings address a constituent or a weather variable by it. Neither the
/// order nor the count may change.
struct Tables {
  BoundedArray<std::string> ConstituentShort{1, 18};
  BoundedArray<std::string> ConstituentUnits{1, 18};
  BoundedArray<std::string> ConstituentLong{1, 18};
  BoundedArray<std::string> MetShort{1, 8};
  BoundedArray<std::string> MetUnits{1, 8};
  BoundedArray<std::string> MetLong{1, 8};

  /// Filters of the file dialogs, each with its trailing bar. Positions 0 to 9 are those of the
  /// project's file slots, so two types stand here twice: once for the hydrodynamic side and once
  /// for the water quality side.
  BoundedArray<std::string> FileFilter{0, 13};
};

/// Positions in `FileFilter` behind those of the file slots.
inline constexpr int kProjectFilter = 10;
inline constexpr int kBinaryFilter = 12;

/// Builds the tables. Called at start, before the first window.
Tables InitTables(Ui& ui);

/// A file's type: the last three characters of its name in upper case ("HNP", "QNP", "XSG", "LAT",
/// "WIT", "BCF", "POW", "MET", "BMD", "IMP", "CFG").
std::string TypeKey(std::string_view fileName);

}  // namespace lomaris

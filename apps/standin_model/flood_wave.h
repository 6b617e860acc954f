#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "core/dates.h"
#include "model/hydro_input.h"
#include "model_kind.h"

namespace lomaris {

struct ResultColumn;

/// A made-up wave that moves down the branches of a network, one hump from the first cross section
/// of each branch to the last. No hydraulics: what is shown at a cross section is its initial value
/// in the network, raised or lowered by the height of the hump there.
class FloodWave {
 public:
  /// `hydro` outlives this.
  FloodWave(const HydroInput& hydro, ModelKind kind);

  std::int32_t Rows() const { return static_cast<std::int32_t>(places_.size()); }
  int Cols() const { return static_cast<int>(columns_.size()); }

  /// Titles of the label column and of the results, joined by "|".
  std::string Heading() const;

  /// All values of a column, counted from 1, when `part` of the run is done, 0 to 1.
  std::vector<float> Column(int column, double part) const;

  /// A column's title without its unit, and its unit.
  std::string Name(int column) const;
  std::string Units(int column) const;

  /// Name of the cross section of a row, counted from 1.
  const std::string& XSectName(int row) const;

  /// The cross section at which the hump is highest: "1: CR 16.53".
  std::string CrestAt(double part) const;

  /// Date and time when `part` of the run is done; the second is for display.
  ModelDateTime Time(double part) const;
  std::string DateTime(double part) const { return FormatDate(Time(part), "mm/dd/yyyy hh:nn"); }

 private:
  struct Place {
    std::reference_wrapper<const XSectRec> XSect;
    int Branch;
    double Position;  ///< 0 at the first cross section of a branch, 1 at the end of the longest one
  };

  double Height(const Place& place, double part) const;

  const HydroInput& hydro_;
  std::span<const ResultColumn> columns_;
  std::vector<Place> places_;
};

}  // namespace lomaris

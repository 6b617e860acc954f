#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "auxiliary/conc_block.h"
#include "core/bounded_array.h"

namespace lomaris {

inline constexpr std::size_t kVarNameSize = 18;  ///< bytes of a field
inline constexpr std::size_t kVarUnitsSize = 12;
inline constexpr std::size_t kSegNameSize = 15;

/// The smallest and the largest of some values, in the bytes of the file.
struct Extremes {
  float Min = 0;
  float Max = 0;

  bool operator==(const Extremes&) const = default;
};

struct BMDExtremes {
  BoundedArray<Extremes> OfVars;      ///< over all segments and time steps
  BoundedArray<Extremes> OfSegments;  ///< over all time steps; by variable and in it by segment
};

/// What a binary modeling file holds.
struct BMDContent {
  std::int32_t SeedTime = 0;  ///< s from 1 January 1901 to the time origin: an unsigned number in
                              ///< the bits of a signed one
  std::int32_t NumSegments = 0;
  std::int32_t NumTimes = 0;
  std::int32_t NumVars = 0;
  double StartTime = 0;  ///< smallest of the stored times
  double EndTime = 0;    ///< largest of them
  BoundedArray<std::string> VarName;
  BoundedArray<std::string> VarUnits;
  ConcBlock Concs;
  BoundedArray<double> StoredTimes;  ///< days from the time origin
  BMDExtremes Ranges;
  BoundedArray<std::string> SegName;

  bool HasNoData() const { return NumVars == 0 || NumSegments == 0 || NumTimes == 0; }
};

// Binary modeling file: results of a model, variables at segments over time steps. Numbers are
// little-endian, and fields follow one another with nothing between them.
//
//   0   text 3      "BMD"
//   3   byte        15
//   4   byte        0
//   5   float 32    version, 2.0
//   9   integer 32  seconds from 1 January 1901 00:00 to the time origin, unsigned
//   13  bytes 37    0
//   50  integer 32  number of segments
//   54  integer 32  number of time steps
//   58  integer 32  number of variables
//   62  float 64    smallest entry of the time table
//   70  float 64    largest entry of the time table
//   78  per variable: name, text 18; units, text 12
//       per time step, per segment, per variable: value, float 32
//       per time step: days from the time origin, float 64
//       per variable: smallest and largest value, float 32 each
//       per variable, per segment: smallest and largest value, float 32 each
//       per segment: name, text 15; older files end before these
//
// A text is Windows-1252, followed by a zero byte where there is room for it, and blanks.

/// Reads a file; the concentrations and the time table only if `lowMemory` is false. A file that
/// counts no variable, no segment or no time step is read no further than its header. What the
/// header says besides the counts and the seed time is not looked at.
///
/// Error 62, with the sizes, for a file that is shorter than its counts say, 9 for one that is
/// longer and for a count below 0, and those of `FileReader`.
BMDContent ReadBMDFile(const std::string& path, bool lowMemory);

/// Writes a file, safely, and returns the extremes of its values, which are found on the way.
/// Values that are no number have no part in them. Error 9 when a table is not of the size that the
/// counts say.
BMDExtremes WriteBMDFile(const std::string& path, const BMDContent& content);

/// A text as a field of `size` bytes gives it back: without zero bytes and blanks at its ends, and
/// cut at a whole character.
std::string AsField(std::string_view text, std::size_t size);

}  // namespace lomaris

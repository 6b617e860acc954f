#pragma once

#include <cstdint>
#include <string>

#include "auxiliary/value_block.h"
#include "core/bounded_array.h"
#include "core/dates.h"

namespace lomaris {

inline constexpr int kMostSlots = 50;   ///< constituent slots of a record
inline constexpr int kSlotsInUse = 17;  ///< of them, those that the text files know
inline constexpr int kMostNodes = 500;  ///< node numbers that a series can belong to
inline constexpr int kDescriptionLines = 3;

/// An array from 1 in which all elements are the same.
template <class T>
BoundedArray<T> Filled(std::int64_t count, T value) {
  BoundedArray<T> array(1, count);
  for (T& element : array) element = value;
  return array;
}

/// The series of one cross section.
struct AuxXSect {
  std::int32_t Node = 0;  ///< running number in the network; in a BCF the branch, negative for its
                          ///< downstream end
  std::string Name;
  std::int32_t IntakeNode = 0;  ///< POW: node that the water is withdrawn from
  std::string IntakeName;       ///< POW: name of that cross section
  BoundedArray<float> Scale = Filled(kMostSlots, 1.0F);       ///< by slot; for the model to apply,
  BoundedArray<float> Conversion = Filled(kMostSlots, 1.0F);  ///< never applied to `Values` here
  ValueBlock Values;                                          ///< as in the file, by slot and step

  bool operator==(const AuxXSect&) const = default;
};

/// One auxiliary file in memory: time series at cross sections of the network, all on the same time
/// steps. The last three characters of the file's name tell the kind: LAT lateral inflows, WIT
/// withdrawals, POW heat loads, BCF boundary conditions, MET weather, BMD results of a model.
///
/// A slot is a row of the constituent table (of the weather table in a MET), slot 1 the flow. There
/// are no gaps: an active cross section has a value in each active slot at each step.
struct AuxData {
  bool Modified = false;  ///< differs from the file
  std::string FileName;
  BoundedArray<std::string> Description{1, kDescriptionLines};  ///< free text, a line each
  std::uint8_t Interpolation = 0;  ///< between the steps: 0 stair-step, 1 linear
  std::string BoundaryType;        ///< BCF: Q flow, H depth, T rating table; empty when not known
  std::uint8_t HeatLoadType = 0;   ///< POW: slot 2 is 0 a temperature difference, 1 the effluent's
  float DustAttenuation = 0;       ///< MET
  float Latitude = 0;              ///< MET: decimal degrees
  float Longitude = 0;             ///< MET: decimal degrees
  float LongitudeStd = 0;          ///< MET: decimal degrees, of the standard meridian
  std::uint8_t TemperatureOption = 0;  ///< MET, slot 4: 0 not selected, 1 wet bulb, 2 dew point,
                                       ///< 3 relative humidity
  std::uint8_t CloudOption = 0;        ///< MET, slot 1: 0 cloud cover, 1 solar radiation
  bool IsRating = false;      ///< BCF: a rating table, whose points stand in place of time steps
  std::int32_t NumTimes = 0;  ///< time steps
  BoundedArray<ModelDateTime> Times;  ///< 1 to NumTimes
  std::int32_t NumXSect = 0;          ///< entries of `XSect`
  std::int32_t NumConst = 0;          ///< columns of values less one: the flow does not count
  BoundedArray<bool> ActiveConst{1, kMostSlots};  ///< slots that take part
  BoundedArray<bool> ActiveNode{1, kMostNodes};  ///< nodes that take part; an entry of another node
                                                 ///< keeps its data and is not written
  BoundedArray<AuxXSect> XSect;                  ///< 1 to NumXSect; one unused entry when that is 0

  bool operator==(const AuxData&) const = default;
};

/// The kind of the record's file: "LAT", "WIT" and so on.
std::string KindOf(const AuxData& aux);

/// Time steps that a file may have, so that a grid can show them.
std::int32_t MaxSteps(const AuxData& aux);

/// Whether a cross section is written. Error 9 for a node outside 1 to 500: such an entry would be
/// lost on a save.
inline bool IsActive(const AuxData& aux, const AuxXSect& xsect) {
  return aux.ActiveNode[xsect.Node];
}

/// Sets the flags of the nodes to those of the entries, after a load that may have moved entries to
/// other nodes.
void MarkNodesOfEntries(AuxData& aux);

}  // namespace lomaris

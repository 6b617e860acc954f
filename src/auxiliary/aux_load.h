#pragma once

#include "auxiliary/aux_cursor.h"
#include "auxiliary/aux_data.h"
#include "auxiliary/aux_surroundings.h"

namespace lomaris {

/// A text file while it is read: what each step of a reader works on. The record is a new one, with
/// the file's name and boundary type and the descriptions; the caller of the load gets it only if
/// all went well.
struct AuxLoad {
  AuxCursor& In;
  AuxData& Aux;
  const AuxSurroundings& Around;
};

/// Counts of a header are claims. These give a count back or end the load with error 9; a count
/// of time steps only needs to be none below 0, since no memory is made for more than the file
/// holds.
std::int32_t CheckedTimes(std::int32_t count);
std::int32_t CheckedXSects(std::int32_t count);

/// A field of the record that is one byte. Error 6 for what is none.
std::uint8_t CheckedByte(std::int16_t value);

/// Marks the node of an entry as active. False, having told it, for a number outside 1 to 500; the
/// box names the network's largest node as the limit, which is what a person can look up.
bool MarkNode(const AuxXSect& xsect, const AuxLoad& load);

}  // namespace lomaris

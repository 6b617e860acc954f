#pragma once

#include <string>

#include "auxiliary/aux_data.h"
#include "auxiliary/aux_surroundings.h"

namespace lomaris {

/// Fills `aux`, which is new but for the file's name, from a binary modeling file: each segment as
/// a cross section, each variable as a slot. The record is for viewing and is never saved. The
/// window's constituent tables then name the variables; they grow when there are more.
///
/// Without a window there are counts and names only, and the tables stay. False, having told it,
/// for a file that is too large to be shown or holds no data, and when the user has given up the
/// window. Errors of the file are thrown.
bool ReadModelResults(AuxData& aux, const std::string& path, const AuxSurroundings& around);

}  // namespace lomaris

#pragma once

#include <cstdint>
#include <string>

#include "core/bounded_array.h"
#include "core/reader_state.h"

namespace lomaris {

// A list of file names in a file: their number, a blank before and after it, then one line a name.

/// Reads a list into `names`, made new with the bounds it has. Error 9 for more names than it
/// holds; what was read before a failure stands.
void ReadNameList(ReaderState& in, std::int16_t& count, BoundedArray<std::string>& names);

void AppendNameList(std::string& out, std::int16_t count, const BoundedArray<std::string>& names);

}  // namespace lomaris

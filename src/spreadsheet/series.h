#pragma once

#include <string>

namespace lomaris {

/// The text with the number at its end raised by 1. The number may be as long as it likes, and
/// keeps its leading zeros: "XS009" is followed by "XS010", "9" by "10". A text without a number at
/// its end is followed by the one with 1.
std::string NextInSeries(std::string text);

}  // namespace lomaris

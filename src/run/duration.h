#pragma once

#include <string>

namespace lomaris {

/// "59 seconds", "1 minutes 0 seconds", "2 hours 5 minutes 7 seconds". Below a minute the time is
/// rounded, from there on it is taken apart into whole parts.
std::string DurationText(double seconds);

/// "01:02:03", behind "1 day " or "12 days " for a day or more; to the nearest second.
std::string TimeLeftText(double days);

}  // namespace lomaris

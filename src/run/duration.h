#pragma once

#include <string>

namespace lomaris {

/// "59 seconds", "1 minutes 0 seconds", "2 hours 5 minutes 7 seconds". Below a minute the time is
/// rounded, from there on it is taken apart into whole parts.
std::string DurationText(double seconds);

/// "01:02:03", behind "1 day " or "12 days " for a day or more; to the nearest second.
std::string TimeLeftText(double days);

/// The remaining time to show, in days. An estimate from the per cent done jumps with every step
/// that takes a little longer than others; what is shown counts down by the clock instead, and is
/// drawn towards the new estimate within some seconds: quickly where little is left, in ten seconds
/// at most. A model that moves steadily gets the estimate itself.
///
/// `shown` was shown `elapsed` days ago; 1e30, or 0, when there was no estimate yet.
double SteadyTimeLeft(double shown, double estimate, double elapsed);

}  // namespace lomaris

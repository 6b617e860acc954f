#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/ports/ui.h"

namespace lomaris {

/// Days since 30 December 1899, the fraction is the time of day. Files carry whole minutes.
using ModelDateTime = double;

/// Serial of a day of the Gregorian calendar; nothing for a day that does not exist or a year
/// outside 100 to 9999.
std::optional<ModelDateTime> DateSerial(int year, int month, int day);

/// The start of today, by the clock and the time zone of the computer.
ModelDateTime Today();

/// A date text: month/day/year with or without a time "hour:minute[:second][ AM|PM]", or an ISO
/// date ("2031-05-01", a blank or T before the time). A two-digit year means 1930 to 2029. A time
/// alone is a time of day 0. Nothing when the text is none of these.
std::optional<ModelDateTime> ParseDate(std::string_view text);

/// A date-time by a mask of "yyyy", "yy", "mm", "dd", "hh" and "nn" in any case, each with leading
/// zeros; an "mm" behind the hour is minutes; other characters stand for themselves. The time is
/// taken to the nearest second, then cut at the minute. Error 6 outside the years 100 to 9999.
std::string FormatDate(ModelDateTime dateTime, std::string_view mask);

/// Between a date-time and the four fields of a file. `breakUp` true: `year`, `month`, `day` and
/// `hour` (hours with their decimal fraction) are made from `dateTime`; false: `dateTime` is made
/// from them, to the minute. Hour 24 is 00:00 of the next day; a later hour is told of and taken as
/// 00:00; fields that make no date are told of and leave `dateTime` as it was.
void ConvertDateTime(std::int16_t& year, std::int16_t& month, std::int16_t& day, float& hour,
                     ModelDateTime& dateTime, bool breakUp, Ui& ui);

}  // namespace lomaris

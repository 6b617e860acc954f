#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/run_time_error.h"

namespace lomaris {

// Every number of every format passes through these routines. No locale is looked at.

/// Text to number, strict: blanks around, a sign, digits with a point, an exponent after E or D.
/// Anything else is error 13, a number out of the type's range error 6; one too small for it is 0.
/// Integers: a fraction is rounded to the nearest, ties to even.
float ToSingle(std::string_view text);
double ToDouble(std::string_view text);
std::int16_t ToInteger(std::string_view text);
std::int32_t ToLong(std::string_view text);

template <class T>
T ToNumber(std::string_view text);
template <>
inline float ToNumber<float>(std::string_view text) {
  return ToSingle(text);
}
template <>
inline double ToNumber<double>(std::string_view text) {
  return ToDouble(text);
}
template <>
inline std::int16_t ToNumber<std::int16_t>(std::string_view text) {
  return ToInteger(text);
}
template <>
inline std::int32_t ToNumber<std::int32_t>(std::string_view text) {
  return ToLong(text);
}

/// True when `ToDouble` would take the text.
bool IsNumeric(std::string_view text);

/// Text to number, by numeric value: the longest number at the start, behind blanks; else 0. Error
/// 6 for one that is too large.
double NumericValue(std::string_view text);

/// Number to text: the shortest that holds the value, at most 7 significant digits (32-bit) or 15
/// (64-bit), no trailing zeros, a zero before the point, "1E-05" and "1.234568E+07" where the plain
/// form does not hold it. Error 6 for what is no finite number: no file could be read back with it.
void AppendNumber(std::string& out, float value);
void AppendNumber(std::string& out, double value);
void AppendNumber(std::string& out, std::int64_t value);
inline void AppendNumber(std::string& out, std::int32_t value) {
  AppendNumber(out, static_cast<std::int64_t>(value));
}
inline void AppendNumber(std::string& out, std::int16_t value) {
  AppendNumber(out, static_cast<std::int64_t>(value));
}

/// `AppendNumber` into a text of its own.
template <class T>
std::string NumberText(T value) {
  std::string text;
  AppendNumber(text, value);
  return text;
}

/// A printed number, as those are that stand alone on their line: a blank behind it, and one before
/// it where a minus sign would stand.
template <class T>
void AppendPrinted(std::string& out, T value) {
  if (!(value < 0)) out += ' ';
  AppendNumber(out, value);
  out += ' ';
}
inline std::string PrintedNumber(std::int64_t value) {
  std::string text;
  AppendPrinted(text, value);
  return text;
}

/// With exactly two decimals, and a zero before the point. Error 6 for no finite number.
void AppendTwoDecimals(std::string& out, float value);

}  // namespace lomaris

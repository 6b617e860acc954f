#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>
#include <type_traits>

#include "core/text.h"

namespace lomaris {
namespace {

constexpr std::size_t kShownBytes = 40;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

RuntimeError NotANumber(std::string_view text) {
  return RuntimeError(ErrorNumber::TypeMismatch,
                      "\"" + Shown(text, kShownBytes) + "\" is not a number");
}

RuntimeError TooLarge(std::string_view text) {
  return RuntimeError(ErrorNumber::Overflow, "\"" + Shown(text, kShownBytes) + "\" is too large");
}

/// A number at the start of a text: its value, and how many characters it takes (0: no number).
template <class T>
struct Scanned {
  T Value = 0;
  std::size_t Length = 0;
  bool Overflow = false;
};

/// What `std::from_chars` calls out of range is either too large or so small that it is 0: the
/// power of ten of its first digit tells.
bool IsTiny(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, mark);
  const std::size_t first = digits.find_first_of("123456789");
  if (first == std::string_view::npos) return true;
  std::string_view exponentText = number.substr(std::min(mark + 1, number.size()));
  if (exponentText.starts_with('+')) exponentText.remove_prefix(1);
  std::int32_t exponent = 0;
  const std::errc error =
      std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent).ec;
  if (error == std::errc::result_out_of_range) return exponentText.front() == '-';
  const std::size_t point = std::min(digits.find('.'), digits.size());
  return static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) + exponent <= 0;
}

template <class T>
Scanned<T> ScanUnsigned(std::string_view text) {
  const bool startsLikeNumber =
      !text.empty() &&
      (IsDigit(text[0]) || (text[0] == '.' && text.size() > 1 && IsDigit(text[1])));
  if (!startsLikeNumber) return {};
  Scanned<T> scanned;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scanned.Value);
  scanned.Length = static_cast<std::size_t>(end - text.data());
  if (error == std::errc::result_out_of_range) {
    scanned.Value = 0;
    scanned.Overflow = !IsTiny(text.substr(0, scanned.Length));
  }
  return scanned;
}

/// The exponent letter D is the one that `std::from_chars` does not know.
bool HasExponentD(std::string_view text, std::size_t place) {
  if (place >= text.size() || (text[place] != 'D' && text[place] != 'd')) return false;
  std::size_t digit = place + 1;
  if (digit < text.size() && (text[digit] == '+' || text[digit] == '-')) ++digit;
  return digit < text.size() && IsDigit(text[digit]);
}

template <class T>
Scanned<T> ScanNumber(std::string_view text) {
  const bool negative = !text.empty() && text[0] == '-';
  const std::size_t sign = negative || (!text.empty() && text[0] == '+') ? 1 : 0;
  text.remove_prefix(sign);
  Scanned<T> scanned = ScanUnsigned<T>(text);
  if (scanned.Length == 0) return scanned;
  if (HasExponentD(text, scanned.Length)) {
    std::string withE(text);
    withE[scanned.Length] = 'E';
    scanned = ScanUnsigned<T>(withE);
  }
  if (negative) scanned.Value = -scanned.Value;
  scanned.Length += sign;
  return scanned;
}

template <class T>
T ToFloating(std::string_view field) {
  // Nearly every field is a number as it stands; only "inf" and "nan" are none of ours.
  T value = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
  if (error == std::errc() && end == field.data() + field.size() && std::isfinite(value)) {
    return value;
  }
  const std::string_view text = TrimBlanks(field);
  const Scanned<T> scanned = ScanNumber<T>(text);
  if (scanned.Length == 0 || scanned.Length != text.size()) throw NotANumber(field);
  if (scanned.Overflow) throw TooLarge(text);
  return scanned.Value;
}

/// Rounded to the nearest, ties to even.
template <class T>
T ToWhole(std::string_view field) {
  const std::string_view text = TrimBlanks(field);
  T value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc() && end == text.data() + text.size()) return value;
  const double rounded = std::nearbyint(ToFloating<double>(field));
  if (rounded < std::numeric_limits<T>::min() || rounded > std::numeric_limits<T>::max()) {
    throw TooLarge(text);
  }
  return static_cast<T>(rounded);
}

/// Lays out `digits` (no point, no trailing zeros) with the point behind the first one moved by
/// `exponent`: plain where `maxDigits` hold it, else with an exponent.
void AppendDigits(std::string& out, std::string_view digits, int exponent, int maxDigits) {
  const int count = static_cast<int>(digits.size());
  if (exponent < -4 || exponent >= maxDigits) {
    out += digits[0];
    if (count > 1) out.append(1, '.').append(digits.substr(1));
    out += exponent < 0 ? "E-" : "E+";
    const int size = std::abs(exponent);
    if (size < 10) out += '0';
    out += std::to_string(size);
  } else if (exponent < 0) {
    out.append("0.").append(static_cast<std::size_t>(-exponent - 1), '0').append(digits);
  } else if (count <= exponent + 1) {
    out.append(digits).append(static_cast<std::size_t>(exponent + 1 - count), '0');
  } else {
    const auto whole = static_cast<std::size_t>(exponent + 1);
    out.append(digits.substr(0, whole)).append(1, '.').append(digits.substr(whole));
  }
}

template <class T>
void AppendFloating(std::string& out, T value, int maxDigits) {
  if (!std::isfinite(value)) throw RuntimeError(ErrorNumber::Overflow, "not a finite number");
  if (value == 0) {
    out += '0';
    return;
  }
  std::array<char, 48> buffer;
  char* const first = buffer.data();
  char* const last = first + buffer.size();
  // The shortest text mostly has few enough digits; only where it has not is the value rounded.
  char* end = std::to_chars(first, last, value, std::chars_format::scientific).ptr;
  char* mark = std::find(first, end, 'e');
  const int signAndPoint = (value < 0 ? 1 : 0) + 1;
  if (mark - first - signAndPoint > maxDigits) {
    end = std::to_chars(first, last, value, std::chars_format::scientific, maxDigits - 1).ptr;
    mark = std::find(first, end, 'e');
  }
  int exponent = 0;
  std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);

  char* digit = first;
  if (value < 0) {
    out += '-';
    ++digit;
  }
  if (digit + 1 < mark) {  // close up over the point
    digit[1] = digit[0];
    ++digit;
  }
  while (mark - 1 > digit && mark[-1] == '0') --mark;
  AppendDigits(out, {digit, static_cast<std::size_t>(mark - digit)}, exponent, maxDigits);
}

}  // namespace

float ToSingle(std::string_view text) {
  return ToFloating<float>(text);
}
double ToDouble(std::string_view text) {
  return ToFloating<double>(text);
}
std::int16_t ToInteger(std::string_view text) {
  return ToWhole<std::int16_t>(text);
}
std::int32_t ToLong(std::string_view text) {
  return ToWhole<std::int32_t>(text);
}

bool IsNumeric(std::string_view field) {
  const std::string_view text = TrimBlanks(field);
  const Scanned<double> scanned = ScanNumber<double>(text);
  return scanned.Length > 0 && scanned.Length == text.size() && !scanned.Overflow;
}

double NumericValue(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return 0;
  const Scanned<double> scanned = ScanNumber<double>(text.substr(first));
  if (scanned.Overflow) throw TooLarge(text);
  return scanned.Value;
}

void AppendNumber(std::string& out, float value) {
  AppendFloating(out, value, 7);
}
void AppendNumber(std::string& out, double value) {
  AppendFloating(out, value, 15);
}

void AppendNumber(std::string& out, std::int64_t value) {
  std::array<char, 24> buffer;
  const char* end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  out.append(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
}

void AppendTwoDecimals(std::string& out, float value) {
  if (!std::isfinite(value)) throw RuntimeError(ErrorNumber::Overflow, "not a finite number");
  std::array<char, 64> buffer;
  const char* end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                  std::chars_format::fixed, 2)
                        .ptr;
  std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  if (text == "-0.00") text.remove_prefix(1);
  out += text;
}

}  // namespace lomaris

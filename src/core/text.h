#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "core/bounded_array.h"
#include "core/error_report.h"
#include "core/numbers.h"
#include "core/ports/ui.h"

namespace lomaris {

inline constexpr std::string_view kLineBreak = "\r\n";  ///< of boxes and of files on disk

/// The text without the blanks at both ends. Tabs are no blanks.
std::string_view Trim(std::string_view text);

/// Every tab, carriage return and line feed removed, wherever they stand; then trimmed.
std::string TrimField(std::string_view text);

/// Turns a line into tab-separated fields: tabs become blanks, the ends are trimmed, each run of
/// blanks becomes one tab. Changes `text` and returns it.
const std::string& CollapseWhitespace(std::string& text);

/// First character in upper case, the rest in lower case.
std::string ProperCase(std::string_view text);

/// Upper and lower case of UTF-8 text, for the letters of ASCII and of Windows-1252.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

/// True when the texts are the same but for the case of their letters.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// `text` with every `from` replaced by `to`.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

/// A text of several lines as the one line that a file can hold: each carriage return becomes
/// "; " and each line feed is dropped. A lone line feed counts as a line break as well.
std::string JoinLines(std::string_view text);

/// True when `value` equals an element of `list`.
template <class T, class List>
bool IsInList(const T& value, const List& list) {
  return std::find(std::begin(list), std::end(list), value) != std::end(list);
}

/// The larger and the smaller of two values.
template <class T>
T Max(T a, T b) {
  return b > a ? b : a;
}
template <class T>
T Min(T a, T b) {
  return b < a ? b : a;
}

/// The text as a message shows it: a longer one is cut behind `most` bytes, at a whole character,
/// so that a damaged file makes no box of megabytes, and zero bytes, which would end it, have a
/// sign.
std::string Shown(std::string_view text, std::size_t most = 2000);

/// Splits `text`, its trailing delimiters removed, at each `delimiter` into at most `capacity`
/// pieces, and hands each to `store(place from 0, piece)`, which may end the work by giving false.
/// There is no quoting; two delimiters in a row make an empty field, and an empty text makes one.
/// Returns the number of fields that were taken. Error 9 when there are more than `capacity`; where
/// it is the last field that is too many, a box that shows the text and `upperBound` comes first.
template <class Store>
std::size_t SplitFields(std::string_view text, char delimiter, std::size_t capacity,
                        std::int64_t upperBound, Ui& ui, Store&& store);

/// The last field of a line as it is taken: trimmed, and a logical constant in any case as "1" or
/// "0". A logical that ends a line may so be written in any case; in the middle of a line
/// `ReadLine` matches it with case.
std::string_view LastField(std::string_view field);

/// `SplitFields` into an array of texts, numbers or logicals, from its lower bound on; what lies
/// beyond the last field stays as it is. `text` loses its trailing delimiters. `count` receives the
/// number of fields, 0 on error 9. A logical is true when its number is not 0. A field that is no
/// number is reported: Abort leaves the routine with the fields before it, Retry tries again,
/// Ignore leaves that element as it was and goes on with the next field.
template <class T>
void BreakApart(std::string& text, BoundedArray<T>& fields, int& count, char delimiter, Ui& ui);

/// The box that says that a line has more fields than its array, then error 9.
[[noreturn]] void ThrowArrayBoundsExceeded(std::string_view text, std::int64_t upperBound, Ui& ui);

inline std::string_view WithoutTrailing(std::string_view text, char delimiter) {
  const std::size_t last = text.find_last_not_of(delimiter);
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

template <class Store>
std::size_t SplitFields(std::string_view text, char delimiter, std::size_t capacity,
                        std::int64_t upperBound, Ui& ui, Store&& store) {
  const std::string_view whole = WithoutTrailing(text, delimiter);
  std::string_view rest = whole;
  std::size_t count = 0;
  for (std::size_t end; (end = rest.find(delimiter)) != std::string_view::npos; ++count) {
    if (count >= capacity) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    if (!store(count, rest.substr(0, end))) return count;
    rest.remove_prefix(end + 1);
  }
  if (count >= capacity) ThrowArrayBoundsExceeded(whole, upperBound, ui);
  return store(count, LastField(rest)) ? count + 1 : count;
}

/// `ToNumber` for an element of an array; a text stays as it is.
template <class T>
T ToElement(std::string_view field) {
  if constexpr (std::is_same_v<T, std::string>) {
    return std::string(field);
  } else if constexpr (std::is_same_v<T, bool>) {
    return ToDouble(field) != 0;
  } else {
    return ToNumber<T>(field);
  }
}

template <class T>
void BreakApart(std::string& text, BoundedArray<T>& fields, int& count, char delimiter, Ui& ui) {
  count = 0;
  text.resize(WithoutTrailing(text, delimiter).size());
  Trap trap(ui, "BreakApart");
  const auto store = [&](std::size_t place, std::string_view field) {
    const std::int64_t index = fields.LowerBound() + static_cast<std::int64_t>(place);
    return trap.Run([&] { fields[index] = ToElement<T>(field); }) != StepEnd::Left;
  };
  count = static_cast<int>(SplitFields(text, delimiter, static_cast<std::size_t>(fields.Count()),
                                       fields.UpperBound(), ui, store));
}

}  // namespace lomaris

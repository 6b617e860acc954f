#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

#include "core/numbers.h"
#include "core/ports/ui.h"
#include "core/program.h"
#include "core/text.h"

namespace lomaris {

/// What becomes of a field that cannot be converted.
enum class FieldFailure {
  Asked,   ///< the user is asked whether to leave the line, try again or go on
  Thrown,  ///< the failure is the reader's
};

/// The open file of a reader: its whole content in memory, and a cursor that goes from line to
/// line. Lines end in CR LF, LF, or with the file.
class ReaderState {
 public:
  /// Reads the file. Throws RuntimeError when that cannot be done.
  ReaderState(Ui& ui, const std::string& path, FieldFailure onFailure = FieldFailure::Asked);
  ReaderState(const ReaderState&) = delete;
  ReaderState& operator=(const ReaderState&) = delete;

  std::string FileName;

  /// 1 when the file is opened, and one more after each line read: what a message calls line 4 is
  /// the third line of the file. Support and the model's users count so.
  std::int32_t LineNumber = 1;

  /// The last line read, as it stands in the file.
  std::string_view CurrentLine;

  bool AtEnd() const { return place_ >= text_.size(); }

  /// Whether nothing but blanks, tabs and line ends is left.
  bool OnlyBlanksLeft() const { return text_.find_first_not_of(kBlankSpace, place_) == text_.npos; }

  std::size_t BytesLeft() const { return Rest().size(); }

  /// What has not been read yet: for a look at what comes, which does not move the cursor.
  std::string_view Rest() const {
    return std::string_view(text_).substr(AtEnd() ? text_.size() : place_);
  }

  /// Reads one line into the variables, each taking the field of its own place.
  ///
  /// One text alone takes the whole line, trimmed. Where a text is among several variables only
  /// tabs separate the fields; else any mix of blanks and tabs does. A text is taken without tabs
  /// and blanks at its ends, a logical is true for the number 1 and for ".TRUE." and "TRUE" in any
  /// case, a number is read strictly (".TRUE." and ".FALSE." are 1 and 0). Fields beyond the last
  /// variable are passed over.
  ///
  /// At the end of the file nothing happens. More than 40 fields are error 9. A field that cannot
  /// be converted is reported with its line: Abort leaves the routine, Retry tries again, Ignore
  /// goes on with the next variable. With `FieldFailure::Thrown` its error leaves the routine.
  template <class... Variables>
  void ReadLine(Variables&... variables);

  /// `ReadLine` for a line that a count in the file has promised: error 62 at the end of the file.
  template <class... Variables>
  void ReadCountedLine(Variables&... variables) {
    RequireLine();
    ReadLine(variables...);
  }

  /// The next line as it stands. Error 62 at the end of the file.
  std::string_view ReadRawLine();

  /// Free input: the next number, up to a comma, blank, tab or line end, on whatever line it
  /// stands. What separates it from the next number is passed over, the line end too, but a second
  /// comma is not: it ends a field that is no number. `LineNumber` and `CurrentLine` stay: numbers
  /// so read have no lines. Error 62 at the end of the file, else those of `ToNumber`.
  template <class Number>
  Number ReadFree();

  /// Error 62 when no line is left.
  void RequireLine() const;

  /// `count` as a size, when the rest of the file could hold so many items of at least
  /// `shortest` bytes each. Error 9 for a negative count, 62 for one that the file cannot hold.
  std::int32_t Plausible(std::int32_t count, std::size_t shortest) const;

 private:
  static constexpr std::size_t kMostFields = 40;
  static constexpr std::string_view kBlankSpace = " \t\r\n";

  /// The fields of a line. Only the first `Count` places of `Text` are set: there is one of these
  /// for every line of a file.
  struct Fields {
    struct Piece {
      const char* Start;
      std::size_t Size;
    };
    std::array<Piece, kMostFields> Text;
    std::size_t Count = 0;

    void Set(std::size_t place, std::string_view field) {
      Text[place] = {field.data(), field.size()};
    }
    std::string_view operator[](std::size_t place) const {
      if (place >= Count) return {};
      return {Text[place].Start, Text[place].Size};
    }
  };

  void NextLine();
  void SkipBlankSpace();
  void SkipSeparator();
  Fields SplitAtTabs() const;
  Fields SplitAtBlanks() const;

  template <class Variable>
  bool Take(std::string_view field, Variable& variable);

  /// Takes a line that holds just these numbers as they stand, as nearly every line does. False for
  /// any other.
  template <class... Numbers>
  bool TakePlain(Numbers&... numbers);

  /// Shows the report of a field that could not be converted.
  Answer ReportField();

  static bool IsBlank(char c) { return c == ' ' || c == '\t'; }
  static bool IsBlankSpace(char c) { return IsBlank(c) || c == '\r' || c == '\n'; }
  static bool EndsNumber(char c) { return IsBlankSpace(c) || c == ','; }

  Ui& ui_;
  FieldFailure onFailure_;
  std::string text_;
  std::size_t place_ = 0;
};

/// True for the number 1, and for ".TRUE." and "TRUE" in any case.
bool IsTrue(std::string_view field);

/// Assigns a field by the variable's type.
template <class Variable>
void Assign(std::string_view field, Variable& variable) {
  if constexpr (std::is_same_v<Variable, std::string>) {
    variable = TrimField(field);
  } else if constexpr (std::is_same_v<Variable, bool>) {
    variable = IsTrue(field);
  } else if (field == ".TRUE.") {
    variable = 1;
  } else if (field == ".FALSE.") {
    variable = 0;
  } else {
    variable = ToNumber<Variable>(field);
  }
}

template <class... Variables>
void ReaderState::ReadLine(Variables&... variables) {
  static_assert(sizeof...(Variables) >= 1 && sizeof...(Variables) <= kMostFields);
  if (AtEnd()) return;
  NextLine();
  constexpr bool hasText = (std::is_same_v<Variables, std::string> || ...);
  if constexpr (hasText && sizeof...(Variables) == 1) {
    ((variables = Trim(CurrentLine)), ...);
    return;
  }
  if constexpr (((std::is_arithmetic_v<Variables> && !std::is_same_v<Variables, bool>)&&...)) {
    if (TakePlain(variables...)) return;
  }
  if constexpr (!hasText || sizeof...(Variables) > 1) {
    const Fields fields = hasText ? SplitAtTabs() : SplitAtBlanks();
    std::size_t place = 0;
    (Take(fields[place++], variables) && ...);
  }
}

template <class... Numbers>
bool ReaderState::TakePlain(Numbers&... numbers) {
  const char* c = CurrentLine.data();
  const char* const end = c + CurrentLine.size();
  const auto skipBlanks = [&] {
    while (c != end && IsBlank(*c)) ++c;
  };
  const auto take = [&](auto& number) {
    skipBlanks();
    auto value = number;
    const auto [behind, error] = std::from_chars(c, end, value);
    if (error != std::errc() || (behind != end && !IsBlank(*behind))) return false;
    if (!std::isfinite(static_cast<double>(value))) return false;
    number = value;
    c = behind;
    return true;
  };
  if (!(take(numbers) && ...)) return false;
  skipBlanks();
  return c == end;
}

/// False: the reader's routine is to be left.
template <class Variable>
bool ReaderState::Take(std::string_view field, Variable& variable) {
  if (DebugMode || onFailure_ == FieldFailure::Thrown) {
    Assign(field, variable);
    return true;
  }
  for (;;) {
    try {
      Assign(field, variable);
      return true;
    } catch (const RuntimeError&) {
      const Answer answer = ReportField();
      if (answer != Answer::Retry) return answer == Answer::Ignore;
    }
  }
}

inline void ReaderState::SkipBlankSpace() {
  while (place_ < text_.size() && IsBlankSpace(text_[place_])) ++place_;
}

inline void ReaderState::SkipSeparator() {
  const auto at = [&](char c) { return place_ < text_.size() && text_[place_] == c; };
  while (at(' ') || at('\t')) ++place_;
  if (at(',')) ++place_;
  while (at(' ') || at('\t')) ++place_;
  while (at('\r')) ++place_;
  if (at('\n')) ++place_;
}

template <class Number>
Number ReaderState::ReadFree() {
  SkipBlankSpace();
  RequireLine();
  const char* const start = text_.data() + place_;
  const char* const end = text_.data() + text_.size();
  // Nearly every number is one as it stands.
  Number value = 0;
  auto [behind, error] = std::from_chars(start, end, value);
  const bool isWhole = error == std::errc() && (behind == end || EndsNumber(*behind));
  if (!isWhole || !std::isfinite(static_cast<double>(value))) {
    behind = std::find_if(start, end, EndsNumber);
    value = ToNumber<Number>({start, static_cast<std::size_t>(behind - start)});
  }
  place_ = static_cast<std::size_t>(behind - text_.data());
  SkipSeparator();
  return value;
}

}  // namespace lomaris

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/bounded_array.h"
#include "core/dates.h"
#include "core/reader_state.h"

namespace lomaris {

/// The fields of a parameter line, as they stand, blanks and all.
struct Parameters {
  static constexpr std::size_t kMost = 10;

  std::array<std::string_view, kMost> Fields;
  std::size_t Count = 0;

  /// The field at a place from 1, strictly. Error 13 for one that is missing.
  template <class T>
  T Number(std::size_t place) const {
    return ToNumber<T>(Fields.at(place - 1));
  }
};

/// The cursor of the readers of auxiliary files. These files are read in four ways, each with its
/// own tolerance; all end with error 62 where the file does, and none asks about a bad field: an
/// error ends the load with a report.
class AuxCursor {
 public:
  AuxCursor(Ui& ui, const std::string& path) : ui_(ui), in_(ui, path, FieldFailure::Thrown) {}

  /// By line: any mix of blanks and tabs separates; fields beyond the last variable are passed
  /// over.
  template <class... Numbers>
  void ReadByLine(Numbers&... numbers) {
    kept_ = Kept::AsRead;
    in_.ReadCountedLine(numbers...);
  }

  /// By parameter line: the line is trimmed, a leading tab dropped, and split at tabs only. More
  /// than 10 fields are error 9, with a box of its own where it is the last that is too many. The
  /// fields stay valid as long as the cursor.
  Parameters ReadParameters();

  /// By line, of as many numbers as it has, from the array's start. Gives their count; more than
  /// the array holds are error 9, with a box of its own where it is the last that is too many.
  std::int32_t ReadNumbersOfLine(BoundedArray<float>& numbers);

  /// By free input: the next number up to a comma, blank, tab or line end, on whatever line it is.
  template <class Number>
  Number ReadFree() {
    return in_.ReadFree<Number>();
  }

  /// A line as a whole, trimmed.
  std::string ReadWhole();

  /// A line that is not looked at.
  void SkipLine();

  /// Nothing is left but blanks and line ends, which an editor may leave behind the last line.
  bool AtEnd() const { return in_.OnlyBlanksLeft(); }

  /// There is another line, even if it is blank.
  bool HasLine() const { return !in_.AtEnd(); }

  std::size_t BytesLeft() const { return in_.BytesLeft(); }

  // --- Where an error is reported. A row of free input counts for one line, however it is wrapped,
  // and the report shows in place of the line how far the reader had come by then.

  void CountXSectRow(std::int32_t xsect) { Count(Kept::XSect, xsect); }
  void CountPointRow(std::int32_t point) { Count(Kept::Point, point); }
  void CountStepRow(ModelDateTime step) { Count(Kept::DateTime, step); }

  std::int32_t LineNumber() const { return in_.LineNumber; }

  /// The line that was read last, or what stands for it; a tab is shown as "<TAB>".
  std::string LastLine() const;

 private:
  enum class Kept { AsRead, XSect, Point, DateTime };

  void Count(Kept kept, double value) {
    ++in_.LineNumber;
    kept_ = kept;
    value_ = value;
  }

  Ui& ui_;
  ReaderState in_;
  Kept kept_ = Kept::AsRead;
  double value_ = 0;  ///< number of the cross section or point, date-time of the step
};

}  // namespace lomaris

#include "auxiliary/aux_cursor.h"

#include <fmt/format.h>

namespace lomaris {

Parameters AuxCursor::ReadParameters() {
  kept_ = Kept::AsRead;
  std::string_view line = Trim(in_.ReadRawLine());
  if (line.starts_with('\t')) line.remove_prefix(1);
  Parameters parameters;
  parameters.Count = SplitFields(line, '\t', Parameters::kMost, Parameters::kMost, ui_,
                                 [&](std::size_t place, std::string_view field) {
                                   parameters.Fields[place] = field;
                                   return true;
                                 });
  return parameters;
}

std::int32_t AuxCursor::ReadNumbersOfLine(BoundedArray<float>& numbers) {
  kept_ = Kept::AsRead;
  std::string line(in_.ReadRawLine());
  const std::size_t count = SplitFields(
      CollapseWhitespace(line), '\t', static_cast<std::size_t>(numbers.Count()),
      numbers.UpperBound(), ui_, [&](std::size_t place, std::string_view field) {
        numbers[numbers.LowerBound() + static_cast<std::int64_t>(place)] = ToNumber<float>(field);
        return true;
      });
  return static_cast<std::int32_t>(count);
}

std::string AuxCursor::ReadWhole() {
  kept_ = Kept::AsRead;
  return std::string(Trim(in_.ReadRawLine()));
}

void AuxCursor::SkipLine() {
  kept_ = Kept::AsRead;
  in_.ReadRawLine();
}

std::string AuxCursor::LastLine() const {
  switch (kept_) {
    case Kept::XSect:
      return fmt::format("Error reading cross section {}", value_);
    case Kept::Point:
      return fmt::format("Error reading point {}", value_);
    case Kept::DateTime:
      return "Last date-time was: " + FormatDate(value_, "mm/dd/yy hh:mm");
    case Kept::AsRead:
      break;
  }
  return ReplaceAll(Shown(in_.CurrentLine), "\t", "<TAB>");
}

}  // namespace lomaris

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

#include "core/reader_state.h"

#include <algorithm>

#include <fmt/format.h>

#include "core/encoding.h"
#include "core/error_report.h"
#include "core/files.h"

namespace lomaris {

ReaderState::ReaderState(Ui& ui, const std::string& path, FieldFailure onFailure)
    : FileName(path), ui_(ui), onFailure_(onFailure), text_(TextFromFile(ReadWholeFile(path))) {}

void ReaderState::NextLine() {
  std::size_t end = text_.find('\n', place_);
  if (end == std::string::npos) end = text_.size();
  CurrentLine = std::string_view(text_).substr(place_, end - place_);
  // Some transfers leave a carriage return too many.
  while (CurrentLine.ends_with('\r')) CurrentLine.remove_suffix(1);
  place_ = end + 1;
  ++LineNumber;
}

std::string_view ReaderState::ReadRawLine() {
  RequireLine();
  NextLine();
  return CurrentLine;
}

void ReaderState::RequireLine() const {
  if (AtEnd()) {
    throw RuntimeError(ErrorNumber::InputPastEnd, "the file ends before all that it announces");
  }
}

std::int32_t ReaderState::Plausible(std::int32_t count, std::size_t shortest) const {
  if (count < 0) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                       fmt::format("{} is not a possible count", count));
  }
  if (static_cast<std::size_t>(count) > BytesLeft() / shortest + 1) {
    throw RuntimeError(ErrorNumber::InputPastEnd,
                       fmt::format("the file is too short to hold {} of them", count));
  }
  return count;
}

ReaderState::Fields ReaderState::SplitAtTabs() const {
  Fields fields;
  fields.Count = SplitFields(CurrentLine, '\t', kMostFields, kMostFields, ui_,
                             [&](std::size_t place, std::string_view field) {
                               fields.Set(place, field);
                               return true;
                             });
  return fields;
}

/// The fields that `CollapseWhitespace` and `BreakApart` would give, found in place: value rows
/// make up most of every file.
ReaderState::Fields ReaderState::SplitAtBlanks() const {
  Fields fields;
  const char* c = CurrentLine.data();
  const char* const end = c + CurrentLine.size();
  for (;;) {
    while (c != end && IsBlank(*c)) ++c;
    if (c == end) break;
    const char* const start = c;
    while (c != end && !IsBlank(*c)) ++c;
    if (fields.Count == kMostFields) {
      // Only a last field too many has a box of its own, which shows the line as it stands.
      if (std::all_of(c, end, IsBlank)) ThrowArrayBoundsExceeded(CurrentLine, kMostFields, ui_);
      throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    fields.Set(fields.Count++, {start, static_cast<std::size_t>(c - start)});
  }
  if (fields.Count > 0) fields.Set(fields.Count - 1, LastField(fields[fields.Count - 1]));
  return fields;
}

Answer ReaderState::ReportField() {
  const std::string routine = fmt::format("ReadLine; error occurred on line {} of file:\r\n\r\n{}",
                                          LineNumber, Shown(CurrentLine));
  return ReportError(ui_, CurrentRuntimeError(), routine, "Module", "modCommon");
}

bool IsTrue(std::string_view field) {
  if (field == "1") return true;
  if (field == "0") return false;
  const std::string upper = UpperCase(field);
  return upper == ".TRUE." || upper == "TRUE" || NumericValue(field) == 1;
}

}  // namespace lomaris

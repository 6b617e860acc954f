#include "model/file_names.h"

#include "core/text.h"
#include "model/project_data.h"

namespace lomaris {
namespace {

constexpr std::string_view kNoFileOnDisk = "NULL";

}  // namespace

bool NamesAFile(std::string_view name) {
  const std::string upper = UpperCase(TrimField(name));
  return !upper.empty() && upper != "NONE" && upper != kNoFileOnDisk && upper != "(NOT SPECIFIED)";
}

std::string NormaliseFileName(std::string_view name, bool forDisplay) {
  if (NamesAFile(name)) return TrimField(name);
  return std::string(forDisplay ? kNotSpecified : kNoFileOnDisk);
}

bool TakeName(std::string& mine, std::string_view theirs) {
  const bool changed = NormaliseFileName(mine, true) != NormaliseFileName(theirs, true);
  mine = TrimField(theirs);
  return changed;
}

std::string FileNameLine(std::string_view name) {
  return NormaliseFileName(name, false);
}

}  // namespace lomaris

#include "workspace/file_slots.h"

#include <algorithm>

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lomaris {
namespace {

constexpr std::string_view kJoint = "     (";
constexpr std::string_view kUpstream = "US";

}  // namespace

std::string BoundaryRowText(const BoundaryRow& row) {
  return row.FileName + (row.IsUpstream ? "     (US Branch " : "     (DS Branch ") +
         NumberText(std::int32_t{row.Branch}) + ")";
}

BoundaryRow ParseBoundaryRow(std::string_view text) {
  // The last joint: a path may hold brackets of its own.
  const std::size_t joint = text.rfind(kJoint);
  if (joint == std::string_view::npos) {
    throw RuntimeError(ErrorNumber::InvalidCall, "\"" + std::string(text) + "\" names no branch");
  }
  const double branch = NumericValue(text.substr(text.rfind(' ') + 1));
  return {.FileName = std::string(text.substr(0, joint)),
          .IsUpstream = text.substr(joint + kJoint.size(), kUpstream.size()) == kUpstream,
          .Branch = static_cast<int>(std::clamp(branch, 0.0, 32767.0))};
}

std::string NameBeforeRemark(std::string_view text, std::string_view besideFile) {
  if (FindFile(Trim(text), besideFile)) return std::string(Trim(text));
  return std::string(Trim(text.substr(0, text.find('('))));
}

}  // namespace lomaris

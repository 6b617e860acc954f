#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "spreadsheet/sheet.h"

namespace lomaris {

/// One head of a table, with how its column stands.
struct FormatHead {
  std::string Text = {};
  Alignment Align = Alignment::General;

  bool operator==(const FormatHead&) const = default;
};

/// The heads of a table as a form gives them in one text.
struct FormatHeads {
  std::vector<FormatHead> Cols = {};
  std::vector<FormatHead> Rows = {};
};

/// Reads "|>Depth|^Print;|First|Second": the heads of the columns from the first one on, behind a
/// semicolon those of the rows. "<", "^" and ">" put the column at the left, in the middle or at
/// the right.
FormatHeads ReadFormatString(std::string_view text);

/// Gives a sheet these heads, with rows and columns for all of them. An empty one leaves the head
/// that is there.
void SetHeads(Sheet& sheet, const FormatHeads& heads);

}  // namespace lomaris

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports/ui.h"
#include "spreadsheet/cell.h"

namespace lomaris {

/// How a cell shows a date-time. Two digits of the year: the cell keeps the full date behind them.
inline constexpr std::string_view kCellDateMask = "mm/dd/yy hh:mm";

/// A cell that shows a date-time, with the full date behind its text.
Cell DateCell(ModelDateTime dateTime);

/// True when the keys of `typed` may be typed into a cell of this kind. Keys alone: a text that is
/// pasted is not held against them.
bool KeyAllowed(FormatKind kind, std::string_view typed);

/// What a key puts into the cell's editor: itself, in upper case where the kind asks for it.
std::string AsTyped(FormatKind kind, std::string_view typed);

/// The check on leaving a cell: what is to be stored for the text that stands in its editor, or
/// nothing when the text is refused. An all-blank text is taken by every kind and clears the cell.
/// A number has to lie within its list's two limits, both inclusive, and is stored as a 32-bit
/// float's text; a list of other than two pieces sets no limit.
std::optional<Cell> CheckedText(const Format& format, std::string_view text);

/// A date just checked, in the century of the date that the cell held, where the year was typed
/// with two digits and they are the same: what was 2031 must not become 1931 by editing its day,
/// nor by passing through the cell.
Cell InCenturyOf(const Cell& before, Cell checked, std::string_view typed);

/// The items of a choice, in order. A list too long for a drop-down is told of, then error 9.
std::vector<std::string> Choices(const Format& format, Ui& ui);

}  // namespace lomaris

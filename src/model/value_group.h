#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/bounded_array.h"
#include "core/ports/ui.h"
#include "core/reader_state.h"

namespace lomaris {

// A group of values in a file stands on a fixed number of lines. The reader counts lines alone: the
// values may be spread over them in any way, with any blanks between them.

/// How many values each line of a group has when it is written.
using GroupLayout = std::span<const int>;

/// Reads a group of numbers or logicals; a logical is true when its number is not 0, and ".TRUE."
/// and ".FALSE." are known, in any case, behind the last line's last blank. All lines are read
/// before a value is looked at. Error 62 when the file ends before them, 13 for a word that is no
/// number, 9 for more or fewer values than `values` holds; where it is the last that is too many, a
/// box that shows all of them comes first.
template <class T>
void ReadGroup(ReaderState& in, GroupLayout layout, BoundedArray<T>& values, Ui& ui);

/// Writes values from the first on, as many as the layout has; logicals as 1 or 0.
template <class T>
void AppendGroup(std::string& out, GroupLayout layout, const BoundedArray<T>& values);

/// Whether `text` begins with a group as `ReadGroup` takes it, of as many values as the layout has.
/// The group's lines are cut off from `text`.
bool BeginsWithGroup(std::string_view& text, GroupLayout layout);

/// Cuts the first line off from a text.
std::string_view CutLine(std::string_view& text);

}  // namespace lomaris

#pragma once

#include <string>
#include <string_view>

#include "core/numbers.h"
#include "core/ports/ui.h"
#include "core/text.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

// What an editor does with the texts of its fields and cells.

/// Takes the number that a text says; a blank one is 0. A text that shows the value as it is leaves
/// it untouched, to the last bit: what was not edited is saved as it was read. False, having told
/// it with `what`, when the text is no number that fits; the value is then as it was.
template <class T>
bool TakeNumber(T& value, std::string_view text, std::string_view what, Ui& ui) try {
  if (Trim(text) == NumberText(value)) return true;
  value = Trim(text).empty() ? T{} : ToNumber<T>(text);
  return true;
} catch (const RuntimeError&) {
  ui.ShowMessage({.Text = "Invalid number entered (" + std::string(what) + "): " + Shown(text, 100),
                  .Title = "Error"});
  return false;
}

/// A constant value when its field is left: a number of zero or more in its plain form, any other
/// text as it stands.
std::string PlainConstant(const std::string& text);

/// The file that a field names; empty for none. What begins with a bracket is a remark.
std::string FileIn(std::string_view text);

/// What the field of a file shows, also for none.
std::string ShownFile(std::string_view name);

/// Takes the file that a field names. A text that shows the name as it is leaves it untouched.
void TakeFile(std::string& name, std::string_view text);

/// The characters of a name, not its bytes.
int Length(std::string_view text);

/// The rows from the first that is not fixed to the last that holds anything.
int FilledRows(const Sheet& sheet);

/// Adds a row at the end when the last one is in use: one stands ready at all times. From a
/// `Change` event it belongs to the step that has filled the row.
void KeepEmptyRow(Sheet& sheet);

}  // namespace lomaris

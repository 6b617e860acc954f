#pragma once

#include <string>
#include <string_view>

namespace lomaris {

/// A cell's text as it is put on the clipboard: as it stands, but in quotes, with its own quotes
/// doubled, where it holds a tab, a line break or a quote. Other spreadsheet programs do the same.
std::string ClipCell(std::string_view text);

/// A text with one carriage return for each line break, whichever program made it.
std::string WithReturns(std::string_view text);

/// The clipboard's text as `WithReturns` gives it, without a line break at its end.
std::string PastedText(std::string_view clipboard);

/// The cells of a text that `WithReturns` gave, one after the other: tabs between the cells of a
/// row, carriage returns between rows. Quotes hold a cell together as `ClipCell` sets them; others
/// are part of the text. An empty text has one cell.
class ClipCells {
 public:
  /// `text` lasts as long as this.
  explicit ClipCells(std::string_view text) : rest_(text) {}

  bool More() const { return more_; }

  /// The next cell as it stands in the text; `CellOf` makes it the text of a cell.
  std::string_view Next();

  /// True when the cell that `Next` gave last is the last one of its row.
  bool AtRowEnd() const { return atRowEnd_; }

  /// Without the quotes, a line break within them turned into a blank.
  static std::string CellOf(std::string_view piece);

 private:
  std::string_view rest_;
  bool more_ = true;
  bool atRowEnd_ = false;
};

}  // namespace lomaris

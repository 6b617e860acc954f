#include "spreadsheet/clip_cells.h"

#include "core/text.h"

namespace lomaris {
namespace {

constexpr char kQuote = '"';

bool IsSeparator(char c) {
  return c == '\t' || c == '\r';
}

/// The length of the quoted cell that a text begins with; 0 where it begins with none. Quotes that
/// need not be there were not set to hold a cell together.
std::size_t QuotedLength(std::string_view text) {
  if (!text.starts_with(kQuote)) return 0;
  bool needed = false;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] != kQuote) {
      needed |= IsSeparator(text[i]);
      continue;
    }
    if (i + 1 == text.size() || IsSeparator(text[i + 1])) return needed ? i + 1 : 0;
    if (text[++i] != kQuote) return 0;
    needed = true;
  }
  return 0;
}

}  // namespace

std::string ClipCell(std::string_view text) {
  if (text.find_first_of("\t\r\n\"") == std::string_view::npos) return std::string(text);
  return kQuote + ReplaceAll(text, "\"", "\"\"") + kQuote;
}

std::string WithReturns(std::string_view text) {
  if (text.find('\n') == std::string_view::npos) return std::string(text);
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool behindReturn = i > 0 && text[i - 1] == '\r';
    if (text[i] != '\n') {
      result += text[i];
    } else if (!behindReturn) {
      result += '\r';
    }
  }
  return result;
}

std::string PastedText(std::string_view clipboard) {
  std::string text = WithReturns(clipboard);
  if (text.ends_with('\r')) text.pop_back();
  return text;
}

std::string_view ClipCells::Next() {
  std::size_t length = QuotedLength(rest_);
  while (length < rest_.size() && !IsSeparator(rest_[length])) ++length;
  const std::string_view piece = rest_.substr(0, length);
  more_ = length < rest_.size();
  atRowEnd_ = !more_ || rest_[length] == '\r';
  rest_.remove_prefix(more_ ? length + 1 : length);
  return piece;
}

std::string ClipCells::CellOf(std::string_view piece) {
  if (QuotedLength(piece) < std::max<std::size_t>(piece.size(), 1)) return std::string(piece);
  piece = piece.substr(1, piece.size() - 2);
  return ReplaceAll(ReplaceAll(piece, "\"\"", "\""), "\r", " ");
}

}  // namespace lomaris

#include "core/text.h"

#include <fmt/format.h>

#include "core/encoding.h"

namespace lomaris {
namespace {

// Letters whose two cases both lie in Windows-1252 and differ by other than the usual 32.
struct CasePair {
  char32_t Upper;
  char32_t Lower;
};
constexpr CasePair kCasePairs[] = {{0x160, 0x161}, {0x152, 0x153}, {0x17D, 0x17E}, {0x178, 0xFF}};

bool IsLatinCapital(char32_t c) {
  return c >= 0xC0 && c <= 0xDE && c != 0xD7;
}

char32_t ToUpper(char32_t c) {
  if (c >= 'a' && c <= 'z') return c - 32;
  if (c >= 32 && IsLatinCapital(c - 32)) return c - 32;
  for (const CasePair& pair : kCasePairs) {
    if (pair.Lower == c) return pair.Upper;
  }
  return c;
}

char32_t ToLower(char32_t c) {
  if ((c >= 'A' && c <= 'Z') || IsLatinCapital(c)) return c + 32;
  for (const CasePair& pair : kCasePairs) {
    if (pair.Upper == c) return pair.Lower;
  }
  return c;
}

std::string MapText(std::string_view text, char32_t (*map)(char32_t)) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t place = 0; place < text.size();) {
    AppendCodePoint(out, map(NextCodePoint(text, place)));
  }
  return out;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string TrimField(std::string_view text) {
  std::string kept;
  kept.reserve(text.size());
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
               [](char c) { return c != '\t' && c != '\r' && c != '\n'; });
  return std::string(Trim(kept));
}

const std::string& CollapseWhitespace(std::string& text) {
  std::string fields;
  fields.reserve(text.size());
  for (const char c : text) {
    if (c != ' ' && c != '\t') {
      fields += c;
    } else if (!fields.empty() && fields.back() != '\t') {
      fields += '\t';
    }
  }
  if (!fields.empty() && fields.back() == '\t') fields.pop_back();
  return text = std::move(fields);
}

std::string ProperCase(std::string_view text) {
  std::size_t first = 0;
  if (!text.empty()) NextCodePoint(text, first);
  return UpperCase(text.substr(0, first)) + LowerCase(text.substr(first));
}

std::string UpperCase(std::string_view text) {
  return MapText(text, ToUpper);
}
std::string LowerCase(std::string_view text) {
  return MapText(text, ToLower);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return UpperCase(a) == UpperCase(b);
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string out;
  if (from.empty()) return std::string(text);
  for (std::size_t found; (found = text.find(from)) != std::string_view::npos;) {
    out.append(text.substr(0, found)).append(to);
    text.remove_prefix(found + from.size());
  }
  return out.append(text);
}

std::string JoinLines(std::string_view text) {
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool loneLineFeed = text[i] == '\n' && (i == 0 || text[i - 1] != '\r');
    if (text[i] == '\r' || loneLineFeed) {
      line += "; ";
    } else if (text[i] != '\n') {
      line += text[i];
    }
  }
  return line;
}

std::string Shown(std::string_view text, std::size_t most) {
  const bool fits = text.size() <= most;
  while (!fits && most > 0 && IsInsideCharacter(text[most])) --most;
  const std::string shown = ReplaceAll(text.substr(0, most), {"\0", 1}, "\u2400");
  return fits ? shown : shown + "...";
}

std::string_view LastField(std::string_view field) {
  const std::string_view trimmed = Trim(field);
  if (!trimmed.empty() && trimmed.front() == '.') {
    const std::string upper = UpperCase(trimmed);
    if (upper == ".TRUE.") return "1";
    if (upper == ".FALSE.") return "0";
  }
  return trimmed;
}

void ThrowArrayBoundsExceeded(std::string_view text, std::int64_t upperBound, Ui& ui) {
  ui.ShowMessage({.Text = fmt::format("Array bounds exceeded in BreakApart:\r\n\r\nInput string: "
                                      "{}\r\nMaximum array size: {}",
                                      Shown(text), upperBound)});
  throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

}  // namespace lomaris

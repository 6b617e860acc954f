#include "core/encoding.h"

#include <algorithm>
#include <array>
#include <optional>

namespace lomaris {
namespace {

constexpr char32_t kInvalid = 0xFFFD;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Windows-1252 from 0x80 to 0x9F; the undefined five stand for themselves.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Length of the sequence that a lead byte announces; 0 for none.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

bool IsScalarValue(char32_t codePoint, std::size_t length) {
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  return codePoint >= kSmallest[length] && codePoint <= 0x10FFFF &&
         (codePoint < 0xD800 || codePoint > 0xDFFF);
}

bool IsUtf8(std::string_view text) {
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t start = place;
    if (NextCodePoint(text, place) == kInvalid && text.substr(start, 3) != "\xEF\xBF\xBD") {
      return false;
    }
  }
  return true;
}

std::optional<char> ToWindows1252(char32_t codePoint) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
    return static_cast<char>(codePoint);
  }
  const auto entry = std::find(kHighControls.begin(), kHighControls.end(), codePoint);
  if (entry == kHighControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + (entry - kHighControls.begin()));
}

std::optional<std::string> AsWindows1252(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t place = 0; place < text.size();) {
    const std::optional<char> byte = ToWindows1252(NextCodePoint(text, place));
    if (!byte) return std::nullopt;
    bytes += *byte;
  }
  return bytes;
}

std::string WithoutByteOrderMarks(std::string text) {
  std::size_t start = 0;
  while (text.compare(start, kByteOrderMark.size(), kByteOrderMark) == 0) {
    start += kByteOrderMark.size();
  }
  text.erase(0, start);
  return text;
}

}  // namespace

char32_t NextCodePoint(std::string_view text, std::size_t& place) {
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const std::size_t start = place++;
  const std::size_t length = SequenceLength(byteAt(start));
  if (length == 1) return byteAt(start);
  if (length == 0 || start + length > text.size()) return kInvalid;
  char32_t codePoint = byteAt(start) & (0x7Fu >> length);
  for (std::size_t i = start + 1; i < start + length; ++i) {
    if (!IsInsideCharacter(text[i])) return kInvalid;
    codePoint = (codePoint << 6) | (byteAt(i) & 0x3Fu);
  }
  if (!IsScalarValue(codePoint, length)) return kInvalid;
  place = start + length;
  return codePoint;
}

void AppendCodePoint(std::string& out, char32_t codePoint) {
  const auto tail = [&](int shift) {
    out += static_cast<char>(0x80u | ((codePoint >> shift) & 0x3Fu));
  };
  if (codePoint < 0x80) {
    out += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    out += static_cast<char>(0xC0u | (codePoint >> 6));
    tail(0);
  } else if (codePoint < 0x10000) {
    out += static_cast<char>(0xE0u | (codePoint >> 12));
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0u | (codePoint >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

std::string TextFromFile(std::string bytes) {
  if (IsAscii(bytes)) return bytes;
  if (IsUtf8(bytes)) return WithoutByteOrderMarks(std::move(bytes));
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendCodePoint(text, byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80u] : byte);
  }
  return text;
}

std::string FileFromText(std::string text) {
  if (IsAscii(text)) return text;
  text = WithoutByteOrderMarks(std::move(text));
  std::optional<std::string> bytes = AsWindows1252(text);
  if (!bytes || IsUtf8(*bytes)) return text;
  return *std::move(bytes);
}

}  // namespace lomaris

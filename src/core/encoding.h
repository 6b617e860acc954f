#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lomaris {

// Model files are Windows-1252 on disk; text is UTF-8 in memory.

/// Bytes of a file as UTF-8. Bytes that are valid UTF-8 with other than ASCII characters are taken
/// as UTF-8 (byte order marks at the start are dropped), all others as Windows-1252. The five bytes
/// that Windows-1252 leaves undefined become the control characters of the same value.
std::string TextFromFile(std::string bytes);

/// UTF-8 text as the bytes of a file: Windows-1252 where every character fits and `TextFromFile`
/// gives the text back, else UTF-8. Writing what was read from such a file gives the same bytes.
std::string FileFromText(std::string text);

/// The code point that starts at `place` of UTF-8 text; moves `place` behind it. Bytes that are no
/// valid UTF-8 give U+FFFD, one at a time.
char32_t NextCodePoint(std::string_view text, std::size_t& place);

/// True for a byte of UTF-8 text that is not the first of its character.
inline bool IsInsideCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

void AppendCodePoint(std::string& out, char32_t codePoint);

}  // namespace lomaris

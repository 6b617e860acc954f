#pragma once

#include <string>

namespace lomaris {

/// Writes one key of a text profile (sections in brackets, key=value), which other programs read:
/// only when `value` differs from `oldValue`. Makes the file where there is none. Comments and
/// other keys stay; lines that are neither section, key nor comment do not. A value is one line.
/// Throws RuntimeError when the file cannot be read or written.
void PutProfileString(const std::string& file, const std::string& section, const std::string& key,
                      const std::string& value, const std::string& oldValue);

}  // namespace lomaris

#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace lomaris {

/// Text of the ground floor, UTF-8, for a window.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Text of a window for the ground floor.
inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

}  // namespace lomaris

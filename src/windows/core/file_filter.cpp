#include "windows/core/file_filter.h"

#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

QString QtPatterns(const QString& patterns) {
  QStringList inBothCases;
  for (const QString& part : patterns.split(';', Qt::SkipEmptyParts)) {
    const QString pattern = part.trimmed();
    if (pattern == "*.*") return "*";
    inBothCases << pattern.toLower() << pattern.toUpper();
  }
  inBothCases.removeDuplicates();
  return inBothCases.join(' ');
}

}  // namespace

QStringList QtFilters(std::string_view filter) {
  const QStringList parts = ToQt(filter).split('|');
  QStringList filters;
  for (qsizetype part = 0; part + 1 < parts.size(); part += 2) {
    filters << parts[part] + " (" + QtPatterns(parts[part + 1]) + ")";
  }
  return filters;
}

}  // namespace lomaris

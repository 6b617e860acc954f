#include "windows/core/qt_settings.h"

#include "core/program.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

/// A section or key for the store, which would take a separator in it for a level of its tree.
QString Escaped(const std::string& name) {
  return ToQt(name).replace('%', "%25").replace('/', "%2F").replace('\\', "%5C");
}

QString Place(const std::string& section, const std::string& key) {
  return Escaped(section) + '/' + Escaped(key);
}

}  // namespace

QtSettings::QtSettings()
    : store_(QSettings::IniFormat, QSettings::UserScope, ToQt(kApplicationTitle),
             ToQt(kApplicationTitle)) {
  store_.setFallbacksEnabled(false);
}

std::string QtSettings::Value(const std::string& section, const std::string& key,
                              const std::string& defaultValue) const {
  const QVariant value = store_.value(Place(section, key));
  return value.isValid() ? FromQt(value.toString()) : defaultValue;
}

void QtSettings::SetValue(const std::string& section, const std::string& key,
                          const std::string& value) {
  store_.setValue(Place(section, key), ToQt(value));
}

}  // namespace lomaris

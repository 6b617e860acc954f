#pragma once

#include <QSettings>

#include "core/ports/settings.h"

namespace lomaris {

/// The settings store: one text profile in the user's configuration folder, Lomaris/Lomaris.ini.
/// Sections, keys and values may hold any characters.
class QtSettings : public Settings {
 public:
  QtSettings();

  std::string Value(const std::string& section, const std::string& key,
                    const std::string& defaultValue) const override;
  void SetValue(const std::string& section, const std::string& key,
                const std::string& value) override;

 private:
  QSettings store_;
};

}  // namespace lomaris

#pragma once

#include <string>

namespace lomaris {

/// The user's settings store: section, key, value; every value is text.
class Settings {
 public:
  virtual ~Settings() = default;

  /// The stored text, or `defaultValue` where there is none.
  virtual std::string Value(const std::string& section, const std::string& key,
                            const std::string& defaultValue = {}) const = 0;

  virtual void SetValue(const std::string& section, const std::string& key,
                        const std::string& value) = 0;
};

}  // namespace lomaris

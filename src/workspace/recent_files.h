#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ports/settings.h"

namespace lomaris {

/// The projects that were open last, the latest first; at most 8, no two the same but for case.
class RecentFiles {
 public:
  static constexpr std::size_t kMost = 8;

  const std::vector<std::string>& Names() const { return names_; }

  /// Puts a name first, whether it was in the list or not.
  void AddToMRU(const std::string& name);

  /// Reads the stored names; those whose file is gone are left out.
  void LoadMRU(const Settings& settings);

  void SaveMRU(Settings& settings) const;

 private:
  std::optional<std::size_t> FindInMRU(const std::string& name) const;

  /// Puts a new name first; the ninth falls off.
  void PushMRU(const std::string& name);

  void MoveMRUToTop(std::size_t index);

  std::vector<std::string> names_;
};

}  // namespace lomaris

#include "workspace/recent_files.h"

#include <algorithm>

#include "core/files.h"
#include "core/text.h"

namespace lomaris {
namespace {

constexpr const char* kSection = "MRUFiles";

}  // namespace

void RecentFiles::AddToMRU(const std::string& name) {
  if (const std::optional<std::size_t> found = FindInMRU(name)) {
    MoveMRUToTop(*found);
  } else {
    PushMRU(name);
  }
}

std::optional<std::size_t> RecentFiles::FindInMRU(const std::string& name) const {
  const auto found = std::find_if(names_.begin(), names_.end(), [&](const std::string& known) {
    return EqualIgnoringCase(known, name);
  });
  if (found == names_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - names_.begin());
}

void RecentFiles::PushMRU(const std::string& name) {
  names_.insert(names_.begin(), name);
  if (names_.size() > kMost) names_.pop_back();
}

void RecentFiles::MoveMRUToTop(std::size_t index) {
  const auto first = names_.begin();
  const auto moved = first + static_cast<std::ptrdiff_t>(index);
  std::rotate(first, moved, moved + 1);
}

void RecentFiles::LoadMRU(const Settings& settings) {
  names_.clear();
  for (std::size_t key = kMost; key-- > 0;) {
    const std::string name = settings.Value(kSection, std::to_string(key));
    if (!name.empty() && FindFile(name)) AddToMRU(name);
  }
}

void RecentFiles::SaveMRU(Settings& settings) const {
  for (std::size_t key = 0; key < names_.size(); ++key) {
    settings.SetValue(kSection, std::to_string(key), names_[key]);
  }
}

}  // namespace lomaris

#pragma once

#include <filesystem>
#include <system_error>

namespace lomaris {

/// Puts the current directory back to what it was, when its life ends.
class KeptDirectory {
 public:
  KeptDirectory() : before_(std::filesystem::current_path(ignored_)) {}
  ~KeptDirectory() { std::filesystem::current_path(before_, ignored_); }
  KeptDirectory(const KeptDirectory&) = delete;
  KeptDirectory& operator=(const KeptDirectory&) = delete;

 private:
  std::error_code ignored_;
  std::filesystem::path before_;
};

}  // namespace lomaris

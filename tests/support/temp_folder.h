#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace lomaris {

/// A new folder that is the current directory while it lives, and is removed with all it holds.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string Path(std::string_view name = {}) const;

  /// Writes a file, byte for byte, and returns its path.
  std::string Write(std::string_view name, std::string_view bytes) const;

  std::string Read(std::string_view name) const;
  bool Holds(std::string_view name) const;

  /// Names of all entries in order, joined by blanks.
  std::string Entries() const;

 private:
  std::filesystem::path before_;
  std::filesystem::path folder_;
};

}  // namespace lomaris

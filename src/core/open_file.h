#pragma once

#include <string>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace lomaris {

/// An open file descriptor that closes itself.
class OpenFile {
 public:
  explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
  ~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int Get() const { return descriptor_; }
  bool IsOpen() const { return descriptor_ >= 0; }

  /// Some disks tell only here that a write failed.
  bool Close() { return ::close(std::exchange(descriptor_, -1)) == 0; }

 private:
  int descriptor_;
};

/// Error 75 for a name with a zero byte, where the system calls would silently cut it.
void CheckName(const std::string& path);

/// Error 75 for a folder or a device.
void CheckPlainFile(const struct stat& status, const std::string& path);

}  // namespace lomaris

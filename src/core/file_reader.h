#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/open_file.h"

namespace lomaris {

/// A file that is read from its start on, piece by piece, however large it is.
class FileReader {
 public:
  /// Throws RuntimeError with the file's name: 53 when it is not there, 70 when it may not be read,
  /// 75 when it is a folder or a device.
  explicit FileReader(const std::string& path);

  /// Bytes, when it was opened.
  std::uint64_t Size() const { return size_; }

  /// Puts the next `size` bytes to `bytes` and returns how many there were: fewer at the end of the
  /// file only. Throws RuntimeError when the disk fails.
  std::size_t Read(void* bytes, std::size_t size);

  /// Moves on without looking at what lies between.
  void Skip(std::uint64_t size);

 private:
  std::string path_;
  OpenFile file_;
  std::uint64_t size_ = 0;
};

}  // namespace lomaris

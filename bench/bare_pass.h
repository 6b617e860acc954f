#pragma once

#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/files.h"

namespace lomaris {

/// A folder for one measurement, in memory where the system has such a place.
class Folder {
 public:
  explicit Folder(bool onDisk) {
    namespace fs = std::filesystem;
    const fs::path base =
        onDisk || !fs::exists("/dev/shm") ? fs::temp_directory_path() : fs::path("/dev/shm");
    std::string pattern = (base / "lomaris_bench_XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder to work in");
    path_ = pattern;
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string File(const char* name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

/// The rival of a reader: the file whole, and each number token through `std::from_chars`.
inline float SumOfNumbers(const std::string& path) {
  const std::string bytes = ReadWholeFile(path);
  const char* c = bytes.data();
  const char* const end = c + bytes.size();
  float sum = 0;
  while (c != end) {
    float value = 0;
    const auto [behind, error] = std::from_chars(c, end, value);
    if (error == std::errc()) sum += value;
    c = behind;
    while (c != end && *c > ' ') ++c;
    while (c != end && *c <= ' ') ++c;
  }
  return sum;
}

/// The rival of a writer: each number through `std::to_chars`, one character between them.
template <class... Format>
std::string BareText(const std::vector<float>& numbers, Format... format) {
  constexpr std::size_t kLongest = 16;
  const auto buffer = std::make_unique_for_overwrite<char[]>(numbers.size() * kLongest);
  char* c = buffer.get();
  for (const float number : numbers) {
    c = std::to_chars(c, c + kLongest, number, format...).ptr;
    *c++ = '\t';
  }
  return {buffer.get(), static_cast<std::size_t>(c - buffer.get())};
}

}  // namespace lomaris

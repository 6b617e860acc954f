#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/files.h"

namespace lomaris {

/// A folder of the fuzzer's own, in memory where the system has such a place.
inline const std::filesystem::path& FuzzFolder() {
  static const std::filesystem::path folder = [] {
    namespace fs = std::filesystem;
    const fs::path base = fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
    std::string pattern = (base / "lomaris_fuzz_XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) std::abort();
    static const fs::path made = pattern;
    std::atexit([] {
      std::error_code ignored;
      fs::remove_all(made, ignored);
    });
    return made;
  }();
  return folder;
}

/// Stops the fuzzer when a claim about the program does not hold.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

/// Takes the fuzzer's bytes for a file. What can be read may be refused by the writer, but what was
/// written is read again, and from then on neither the record nor the file changes any more.
/// `load` and `save` take a record and a file name, which ends in `name`.
template <class Record, class Load, class Save>
void RoundTrip(const std::uint8_t* data, std::size_t size, const Record& fresh, Load load,
               Save save, const char* name = "input.txt") {
  const std::string file = (FuzzFolder() / name).string();
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  Record first = fresh;
  if (!load(first, file)) {
    Require(first == fresh);
    return;
  }
  if (!save(first, file)) return;
  const std::string bytes = ReadWholeFile(file);
  Record second = fresh;
  Require(load(second, file));
  Require(save(second, file));
  Require(ReadWholeFile(file) == bytes);
  Record third = fresh;
  Require(load(third, file));
  Require(third == second);
  Require(save(third, file));
  Require(ReadWholeFile(file) == bytes);
}

}  // namespace lomaris

#include "diary.h"

#include <cerrno>
#include <iostream>

#include "core/encoding.h"
#include "core/run_time_error.h"
#include "core/text.h"

namespace lomaris {

void Diary::Open(const std::string& path) {
  file_.open(path, std::ios::binary | std::ios::trunc);
  if (!file_) throw FileError(errno, path);
}

void Diary::Tell(std::string_view line) {
  std::cout << line << std::endl;
  if (file_.is_open()) file_ << FileFromText(std::string(line)) << kLineBreak << std::flush;
}

}  // namespace lomaris

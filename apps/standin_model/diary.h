#pragma once

#include <fstream>
#include <string>
#include <string_view>

namespace lomaris {

/// What the program did and heard, line by line: printed, and kept in its output file. Each line is
/// on the disk at once, so that a crash leaves all that went before it.
class Diary {
 public:
  /// Makes the output file anew. Throws RuntimeError when that cannot be done.
  void Open(const std::string& path);

  void Tell(std::string_view line);

 private:
  std::ofstream file_;
};

}  // namespace lomaris

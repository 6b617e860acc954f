#pragma once

#include <string>

namespace lomaris {

/// What the ground floor asks of the desktop.
class Shell {
 public:
  virtual ~Shell() = default;

  /// Opens a document or an address with the desktop's program for it. A result above 32 is
  /// success; below it, the reason: 2 no such file, 5 access denied, 31 no program ...
  virtual int Open(const std::string& document) = 0;

  /// Shows a text file in the desktop's program for texts. The result is that of `Open`.
  virtual int OpenText(const std::string& fileName) = 0;
};

}  // namespace lomaris

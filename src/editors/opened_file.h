#pragma once

#include <string>

#include "core/files.h"
#include "core/ports/ui.h"

namespace lomaris {

/// The file that an editor has read or written last, as it was then.
class OpenedFile {
 public:
  void Note(const std::string& name, const std::string& besideFile);

  /// Asks before a save would put away what somebody else has written to the file meanwhile. False:
  /// it is to stay.
  bool MayOverwrite(const std::string& name, const std::string& besideFile, Ui& ui) const;

 private:
  std::string name_;
  FileStamp stamp_;
};

}  // namespace lomaris

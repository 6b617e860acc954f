#pragma once

#include "core/ports/shell.h"

namespace lomaris {

/// The desktop, through its own ways of opening documents and addresses.
class QtShell : public Shell {
 public:
  int Open(const std::string& document) override;
  int OpenText(const std::string& fileName) override;
};

}  // namespace lomaris

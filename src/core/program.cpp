#include "core/program.h"

namespace lomaris {

std::string_view ProgramVersion() {
  return LOMARIS_VERSION;
}

}  // namespace lomaris

#pragma once

#include <span>
#include <string>
#include <vector>

#include "model_kind.h"

namespace lomaris {

/// What the switches of the command line say. Only two of them change what a stand-in does.
struct Switches {
  bool AsksForLinkage = false;     ///< -PY
  bool WritesOut = true;           ///< unless -ON; so with its results
  std::vector<std::string> Lines;  ///< one for each word of the command line, to be told
};

/// A switch is a letter behind a "-" and its value right behind that.
Switches ReadSwitches(ModelKind kind, std::span<const char* const> words);

}  // namespace lomaris

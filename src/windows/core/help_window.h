#pragma once

#include "core/ports/settings.h"

namespace lomaris {

/// Opens the help at a topic, 1 being the contents; brings it to the front when it is open already.
/// The pages lie in the folder "help" beside the program.
void ShowHelpContents(int topic, Settings& settings);

}  // namespace lomaris

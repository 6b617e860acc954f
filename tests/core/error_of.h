#pragma once

#include "core/run_time_error.h"

namespace lomaris {

/// The number of the RuntimeError that an action throws; 0 when it throws none.
template <class Action>
int ErrorOf(Action&& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace lomaris

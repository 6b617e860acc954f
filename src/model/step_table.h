#pragma once

#include <cstdint>
#include <string>

#include "core/bounded_array.h"
#include "core/dates.h"
#include "core/ports/ui.h"
#include "core/reader_state.h"
#include "model/hydro_input.h"

namespace lomaris {

/// A date-time as the files hold it.
struct DateFields {
  std::int16_t Year = 0;
  std::int16_t Month = 0;
  std::int16_t Day = 0;
  float Hour = 0;  ///< with its decimal fraction
};

/// The date-time of four fields; 0 when they make none, of which the user is told.
ModelDateTime ComposedDate(DateFields fields, Ui& ui);

/// The four fields of a date-time. Error 6 when it has none, of which the user is told before.
DateFields BrokenUpDate(ModelDateTime dateTime, Ui& ui);

// A table of steps in a file: their number alone on a line, then one line a step with year, month,
// day, hour and value.

/// Error 9 for more steps than `steps` holds.
void ReadStepTable(ReaderState& in, std::int16_t& count, BoundedArray<TimeStepEntry>& steps,
                   Ui& ui);

void AppendStepTable(std::string& out, std::int16_t count, const BoundedArray<TimeStepEntry>& steps,
                     Ui& ui);

}  // namespace lomaris

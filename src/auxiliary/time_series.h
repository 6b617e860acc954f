#pragma once

#include <cstdint>
#include <functional>

#include "auxiliary/aux_load.h"

namespace lomaris {

/// Ends the series of every kind but BCF.
inline constexpr std::int16_t kTerminatorYear = 9999;

/// How the series of a kind lies in its file.
struct SeriesShape {
  enum class RecordForm { ByLine, Free };

  RecordForm Record = RecordForm::ByLine;  ///< how a time step record is read
  std::int32_t Slots = 0;                  ///< first extent of `Values`

  /// Whether the file is taken once its series is read; false, having told it. None: it is.
  bool (*Accepted)(const AuxLoad& load) = nullptr;
};

/// Reads time steps to the terminator or the end of the file: for each step its record into
/// `Times`, then `readRows(step)` its values into row `step` of the `Values`, which is there by
/// then. A step that the file breaks off in is dropped. All entries then have series of `NumTimes`
/// steps, the number that was read; that it differs from the header's is told.
///
/// False, having told it, for more steps than `MaxSteps`, and when the user has given up the
/// window. Errors of the file are thrown.
bool ReadSeries(const AuxLoad& load, const SeriesShape& shape,
                const std::function<void(std::int32_t step)>& readRows);

/// Reads the value of one slot at one step for all entries: a row of the kinds that have a row per
/// slot.
void ReadSlotRow(const AuxLoad& load, std::int32_t slot, std::int32_t step);

/// Tells that a file may not have more steps.
void TellTooManySteps(std::int32_t maxSteps, Ui& ui);

/// Takes the number of steps read for the true one. One that differs from the header's is told, and
/// the record then differs from the file.
void AdoptStepCount(AuxData& aux, std::int32_t count, Ui& ui);

}  // namespace lomaris

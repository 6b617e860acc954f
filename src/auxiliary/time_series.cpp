#include "auxiliary/time_series.h"

#include <cmath>
#include <limits>

#include <fmt/format.h>

#include "auxiliary/step_progress.h"
#include "model/step_table.h"

namespace lomaris {
namespace {

/// Each hour beyond 24 has a box of its own. Nobody clicks through thousands of them.
constexpr int kMostBadHours = 20;

/// The loop over the time steps of one file.
class SeriesReader {
 public:
  SeriesReader(const AuxLoad& load, const SeriesShape& shape)
      : load_(load), aux_(load.Aux), shape_(shape), maxSteps_(MaxSteps(load.Aux)) {
    MakeRoom(LikelySteps());
  }

  bool Read(const std::function<void(std::int32_t)>& readRows) {
    StepProgress progress(load_.Around.Window, load_.Around.Screen, aux_.NumTimes);
    std::int32_t count = 0;
    while (!load_.In.AtEnd() && ReadStep(count + 1, readRows)) {
      if (++count > maxSteps_) {
        TellTooManySteps(maxSteps_, load_.Around.Screen);
        return false;
      }
      if (!progress.Step(count)) return false;
    }
    room_ = count;
    FitToRoom();
    for (AuxXSect& xsect : aux_.XSect) xsect.Values.ShrinkToFit();
    if (shape_.Accepted != nullptr && !shape_.Accepted(load_)) return false;
    AdoptStepCount(aux_, count, load_.Around.Screen);
    return true;
  }

 private:
  /// The header's number of steps is a claim: no more than the rest of the file can hold.
  std::int32_t LikelySteps() const {
    constexpr std::size_t kShortestNumber = 2;  // a digit and what separates it
    constexpr std::size_t kRecordFields = 4;
    const std::size_t numbers = kRecordFields + static_cast<std::size_t>(shape_.ValuesPerStep);
    const std::size_t steps = load_.In.BytesLeft() / (numbers * kShortestNumber) + 1;
    const std::int32_t claimed = Min(aux_.NumTimes, maxSteps_);
    return static_cast<std::int32_t>(Min(steps, static_cast<std::size_t>(claimed)));
  }

  void MakeRoom(std::int32_t steps) {
    room_ = steps;
    for (AuxXSect& xsect : aux_.XSect) xsect.Values = ValueBlock(shape_.Slots, 0);
    FitToRoom();
  }

  void FitToRoom() {
    aux_.Times.Resize(room_);
    for (AuxXSect& xsect : aux_.XSect) xsect.Values.ResizeTimes(room_);
  }

  /// False at the end of the series.
  bool ReadStep(std::int32_t step, const std::function<void(std::int32_t)>& readRows) {
    try {
      const DateFields record = ReadRecord();
      if (record.Year == kTerminatorYear) return false;
      if (step > maxSteps_) return true;
      if (step > room_) {
        room_ =
            static_cast<std::int32_t>(Min<std::int64_t>(maxSteps_, step + std::int64_t{step} / 2));
        FitToRoom();
      }
      aux_.Times[step] = DateOf(record);
      readRows(step);
      return true;
    } catch (const RuntimeError& error) {
      if (error.Number() == static_cast<int>(ErrorNumber::InputPastEnd)) return false;
      throw;
    }
  }

  DateFields ReadRecord() {
    DateFields record;
    AuxCursor& in = load_.In;
    if (shape_.Record == SeriesShape::RecordForm::ByLine) {
      in.ReadByLine(record.Year, record.Month, record.Day, record.Hour);
    } else {
      record.Year = in.ReadFree<std::int16_t>();
      record.Month = in.ReadFree<std::int16_t>();
      record.Day = in.ReadFree<std::int16_t>();
      record.Hour = in.ReadFree<float>();
    }
    return record;
  }

  ModelDateTime DateOf(DateFields record) {
    if (record.Hour > 24) {
      if (++badHours_ > kMostBadHours) {
        throw RuntimeError(ErrorNumber::TypeMismatch, "too many hours beyond 24");
      }
      aux_.Modified = true;
    }
    ModelDateTime date = std::numeric_limits<ModelDateTime>::quiet_NaN();
    ConvertDateTime(record.Year, record.Month, record.Day, record.Hour, date, false,
                    load_.Around.Screen);
    if (std::isnan(date)) {
      throw RuntimeError(ErrorNumber::TypeMismatch, "the time step has no valid date");
    }
    return date;
  }

  const AuxLoad& load_;
  AuxData& aux_;
  const SeriesShape& shape_;
  std::int32_t maxSteps_;
  std::int32_t room_ = 0;  ///< steps that the arrays hold
  int badHours_ = 0;
};

}  // namespace

bool ReadSeries(const AuxLoad& load, const SeriesShape& shape,
                const std::function<void(std::int32_t step)>& readRows) {
  return SeriesReader(load, shape).Read(readRows);
}

void ReadSlotRow(const AuxLoad& load, std::int32_t slot, std::int32_t step) {
  for (std::int32_t i = 1; i <= load.Aux.NumXSect; ++i) {
    load.Aux.XSect[i].Values(slot, step) = load.In.ReadFree<float>();
  }
  load.In.CountStepRow(load.Aux.Times[step]);
}

void TellTooManySteps(std::int32_t maxSteps, Ui& ui) {
  ui.ShowMessage({.Text = fmt::format("You have exceeded the maximum number of allowable time "
                                      "steps ({}). You cannot edit this file using Lomaris. Sorry.",
                                      maxSteps),
                  .Title = "Error"});
}

void AdoptStepCount(AuxData& aux, std::int32_t count, Ui& ui) {
  if (count == aux.NumTimes) return;
  ui.ShowMessage(
      {.Text = fmt::format("The number of time steps read from this file ({}) was not equal to the "
                           "number specified in the file header ({}). Lomaris has adopted the "
                           "number of steps actually read as the correct value. Remember to resave "
                           "this file to correct this mismatch, or create a new file with the "
                           "correct number of time steps.",
                           count, aux.NumTimes),
       .Title = "Notice"});
  aux.NumTimes = count;
  aux.Modified = true;
}

}  // namespace lomaris

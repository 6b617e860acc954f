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
      : load_(load),
        aux_(load.Aux),
        shape_(shape),
        maxSteps_(MaxSteps(load.Aux)),
        bytes_(load.In.BytesLeft()) {
    for (AuxXSect& xsect : aux_.XSect) xsect.Values = ValueBlock(shape_.Slots, 0);
  }

  bool Read(const std::function<void(std::int32_t)>& readRows) {
    StepProgress progress(load_.Around.Window, aux_.NumTimes, &load_.Around.Screen);
    std::int32_t count = 0;
    while (!load_.In.AtEnd() && ReadStep(count + 1, readRows)) {
      if (++count > maxSteps_) {
        TellTooManySteps(maxSteps_, load_.Around.Screen);
        return false;
      }
      if (!progress.Step(count)) return false;
    }
    const bool roomToSpare = room_ - count > count / 8;  // what is spare is copied to give it back
    MakeRoom(count);
    for (AuxXSect& xsect : aux_.XSect) {
      if (roomToSpare) xsect.Values.ShrinkToFit();
    }
    if (shape_.Accepted != nullptr && !shape_.Accepted(load_)) return false;
    AdoptStepCount(aux_, count, load_.Around.Screen);
    return true;
  }

 private:
  /// How many steps to make room for when those read so far have filled it: as many as the rest of
  /// the file holds if it goes on like that. The header's number is a claim, and is believed when
  /// it comes close.
  std::int32_t LikelySteps(std::int32_t read) const {
    constexpr std::int32_t kFirst = 16;
    constexpr std::int32_t kFew = 1024;  // which tell little
    constexpr double kMargin = 1.125;
    if (read == 0) return Min(kFirst, maxSteps_);
    const std::size_t left = load_.In.BytesLeft();
    const double bytesPerStep = static_cast<double>(bytes_ - left) / read;
    const double likely = read + 1 + kMargin * static_cast<double>(left) / bytesPerStep;
    const double claimed = aux_.NumTimes;
    const bool believed =
        claimed > read && claimed <= likely && claimed * kMargin * kMargin > likely;
    const double room = believed ? claimed : read < kFew ? Min<double>(likely, kFew) : likely;
    return static_cast<std::int32_t>(Min<double>(room, maxSteps_));
  }

  void MakeRoom(std::int32_t steps) {
    room_ = steps;
    aux_.Times.Resize(steps);
    for (AuxXSect& xsect : aux_.XSect) xsect.Values.ResizeTimes(steps);
  }

  /// False at the end of the series.
  bool ReadStep(std::int32_t step, const std::function<void(std::int32_t)>& readRows) {
    try {
      const DateFields record = ReadRecord();
      if (record.Year == kTerminatorYear) return false;
      if (step > maxSteps_) return true;
      if (step > room_) MakeRoom(LikelySteps(room_));
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
  std::size_t bytes_;      ///< of the file, from the first step on
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

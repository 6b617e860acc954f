#include "auxiliary/bcf_file.h"

#include "auxiliary/aux_text.h"
#include "auxiliary/bcf_branch.h"
#include "auxiliary/step_progress.h"
#include "auxiliary/time_series.h"

namespace lomaris {
namespace {

constexpr std::int32_t kRatingMark = 99999;  ///< in place of the number of time steps
constexpr std::int32_t kDepth = 1;           // rows of a rating table's points
constexpr std::int32_t kDischarge = 2;
constexpr std::string_view kRatingType = "T";

// --- Reading

void ReadHeader(const AuxLoad& load) {
  AuxData& aux = load.Aux;
  aux.NumXSect = 1;
  aux.XSect.Resize(1);
  AuxXSect& boundary = aux.XSect[1];
  boundary.Name = "Boundary";
  aux.ActiveNode[1] = true;
  std::int16_t interpolation = 0;
  load.In.ReadByLine(boundary.Node, aux.NumTimes, interpolation);
  CheckedTimes(aux.NumTimes);
  aux.Interpolation = CheckedByte(interpolation);
  aux.IsRating = aux.NumTimes == kRatingMark;
  const std::int32_t columns = load.In.ReadNumbersOfLine(boundary.Scale);
  if (!aux.IsRating) aux.NumConst = CheckedCount(columns - 1, kSlotsInUse - 1);
  load.In.ReadNumbersOfLine(boundary.Conversion);
  for (std::int32_t slot = 1; slot <= aux.NumConst + 1; ++slot) aux.ActiveConst[slot] = true;
}

/// Whether the file is of the kind that the network has at its place: a rating table or not. A type
/// that is not known is none of a rating table.
bool SuitsNetwork(const AuxLoad& load) {
  const bool expectsRating = load.Aux.BoundaryType == kRatingType;
  if (expectsRating == load.Aux.IsRating) return true;
  const char* const text =
      load.Aux.IsRating
          ? "The Hydro file indicates that this is not a rating table boundary, however the BCF "
            "file is a rating table type. The Hydro file should be changed to the appropriate "
            "boundary condition or a different boundary file should be specified."
          : "The Hydro file indicates that this should be a rating table boundary, however the BCF "
            "file is NOT a rating table type. The Hydro file should be changed to the appropriate "
            "boundary condition or a different boundary file should be specified.";
  load.Around.Screen.ShowMessage({.Text = text, .Title = "Error"});
  if (load.Around.Window != nullptr) load.Around.Window->SetFormCancelled();
  return false;
}

bool ReadSteps(const AuxLoad& load) {
  AuxData& aux = load.Aux;
  const SeriesShape shape = {
      .Record = SeriesShape::RecordForm::Free, .Slots = kSlotsInUse, .Accepted = SuitsNetwork};
  return ReadSeries(load, shape, [&](std::int32_t step) {
    float* const row = aux.XSect[1].Values.Row(step);
    for (std::int32_t slot = 0; slot <= aux.NumConst; ++slot) row[slot] = load.In.ReadFree<float>();
    load.In.CountStepRow(aux.Times[step]);
  });
}

/// Reads a point behind those that are there. False, and no point more, when the file breaks off in
/// it.
bool ReadPoint(AuxCursor& in, ValueBlock& points) {
  const auto depth = in.ReadFree<float>();
  if (in.AtEnd()) return false;
  const auto discharge = in.ReadFree<float>();
  const std::int32_t point = points.Times() + 1;
  points.ResizeTimes(point);
  points(kDepth, point) = depth;
  points(kDischarge, point) = discharge;
  in.CountPointRow(point);
  return true;
}

bool ReadRating(const AuxLoad& load) {
  AuxData& aux = load.Aux;
  load.In.ReadByLine(aux.NumTimes);
  CheckedTimes(aux.NumTimes);
  ValueBlock& points = aux.XSect[1].Values = ValueBlock(kSlotsInUse, 0);
  const std::int32_t maxPoints = MaxSteps(aux);
  StepProgress progress(load.Around.Window, aux.NumTimes, &load.Around.Screen);
  while (points.Times() < aux.NumTimes && !load.In.AtEnd() && ReadPoint(load.In, points)) {
    if (points.Times() > maxPoints) {
      TellTooManySteps(maxPoints, load.Around.Screen);
      return false;
    }
    if (!progress.Step(points.Times())) return false;
  }
  if (!SuitsNetwork(load)) return false;
  points.ShrinkToFit();
  AdoptStepCount(aux, points.Times(), load.Around.Screen);
  aux.Times.Resize(aux.NumTimes);
  return true;
}

// --- Writing

void AppendFactors(std::string& out, const BoundedArray<float>& factors, std::int32_t count) {
  AppendNumber(out, factors[1]);
  for (std::int32_t slot = 2; slot <= count; ++slot) {
    out += '\t';
    AppendNumber(out, factors[slot]);
  }
  out += kLineBreak;
}

/// The record of a step, with no line end: its values follow.
void AppendRecord(std::string& out, const DateFields& record) {
  for (const std::int16_t field : {record.Year, record.Month, record.Day}) {
    AppendNumber(out, field);
    out += '\t';
  }
  AppendNumber(out, record.Hour);
}

void AppendSteps(std::string& out, const AuxData& aux, const AuxSurroundings& around) {
  const AuxXSect& boundary = aux.XSect[1];
  const std::int32_t columns = aux.NumConst + 1;
  if (aux.NumTimes == kRatingMark) {
    throw RuntimeError(ErrorNumber::Overflow, "99999 time steps would be taken for a rating table");
  }
  AppendRow(out, boundary.Node, aux.NumTimes, std::int16_t{aux.Interpolation});
  AppendFactors(out, boundary.Scale, columns);
  AppendFactors(out, boundary.Conversion, columns);
  ReserveSeries(out, aux, static_cast<std::size_t>(columns));
  StepProgress progress(around.Window, aux.NumTimes);
  for (std::int32_t step = 1; step <= aux.NumTimes; ++step) {
    AppendRecord(out, StepRecord(aux.Times[step], around.Screen));
    for (std::int32_t slot = 1; slot <= columns; ++slot) {
      if (!aux.ActiveConst[slot]) continue;
      out += '\t';
      AppendNumber(out, boundary.Values(slot, step));
    }
    out += kLineBreak;
    progress.Step(step);
  }
}

void AppendRating(std::string& out, AuxData& aux, const AuxSurroundings& around) {
  AuxXSect& boundary = aux.XSect[1];
  boundary.Scale[1] = boundary.Conversion[1] = 1;
  AppendRow(out, boundary.Node, kRatingMark, std::int16_t{aux.Interpolation});
  AppendRow(out, boundary.Scale[1]);
  AppendRow(out, boundary.Conversion[1]);
  AppendPrintedRow(out, aux.NumTimes);
  StepProgress progress(around.Window, aux.NumTimes);
  for (std::int32_t point = 1; point <= aux.NumTimes; ++point) {
    AppendRow(out, boundary.Values(kDepth, point), boundary.Values(kDischarge, point));
    progress.Step(point);
  }
}

}  // namespace

bool ReadBCF(const AuxLoad& load) {
  ReadHeader(load);
  if (!load.Aux.IsRating && load.Around.Window == nullptr) return true;
  if (!(load.Aux.IsRating ? ReadRating(load) : ReadSteps(load))) return false;
  CheckBranch(load.Aux, load.Around);
  return true;
}

void AppendBCF(std::string& out, AuxData& aux, const AuxSurroundings& around) {
  AdoptBranch(aux, around);
  if (aux.IsRating) {
    AppendRating(out, aux, around);
  } else {
    AppendSteps(out, aux, around);
  }
}

}  // namespace lomaris

#include "auxiliary/wit_file.h"

#include "auxiliary/aux_text.h"
#include "auxiliary/step_progress.h"
#include "auxiliary/time_series.h"
#include "auxiliary/xsect_names.h"

namespace lomaris {
namespace {

bool ReadHeader(const AuxLoad& load) {
  AuxData& aux = load.Aux;
  std::int16_t interpolation = 0;
  load.In.ReadByLine(aux.NumTimes, aux.NumXSect, interpolation);
  CheckedTimes(aux.NumTimes);
  aux.Interpolation = CheckedByte(interpolation);
  aux.XSect.Resize(Max(1, CheckedXSects(aux.NumXSect)));
  aux.ActiveConst[1] = true;
  for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
    AuxXSect& xsect = aux.XSect[i];
    load.In.ReadByLine(xsect.Node, xsect.Scale[1], xsect.Conversion[1]);
    if (!MarkNode(xsect, load)) return false;
  }
  return true;
}

}  // namespace

bool ReadWIT(const AuxLoad& load) {
  if (!ReadHeader(load)) return false;
  if (load.Around.Window == nullptr) return true;
  const SeriesShape shape = {.Slots = 1};
  return ReadSeries(load, shape, [&](std::int32_t step) { ReadSlotRow(load, 1, step); }) &&
         ReadNames(load);
}

void AppendWIT(std::string& out, AuxData& aux, const AuxSurroundings& around) {
  const std::vector<const AuxXSect*> xsects = ActiveXSects(aux);
  AppendPrintedRow(out, aux.NumTimes, static_cast<std::int32_t>(xsects.size()),
                   std::int16_t{aux.Interpolation});
  for (const AuxXSect* xsect : xsects) {
    AppendPrintedRow(out, xsect->Node, xsect->Scale[1], xsect->Conversion[1]);
  }
  ReserveSeries(out, aux, xsects.size());
  StepProgress progress(around.Window, aux.NumTimes);
  for (std::int32_t step = 1; step <= aux.NumTimes; ++step) {
    AppendPrintedRecord(out, aux.Times[step], around.Screen);
    AppendSlotRow(out, xsects, 1, step);
    progress.Step(step);
  }
  AppendTerminator(out);
  AppendNames(out, aux, Names::OfXSects);
}

}  // namespace lomaris

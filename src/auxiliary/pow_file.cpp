#include "auxiliary/pow_file.h"

#include "auxiliary/aux_text.h"
#include "auxiliary/step_progress.h"
#include "auxiliary/time_series.h"
#include "auxiliary/xsect_names.h"

namespace lomaris {
namespace {

constexpr std::int32_t kFlow = 1;  // slots
constexpr std::int32_t kTemperature = 2;
constexpr std::size_t kXSectFields = 6;

void TellLegacyFile(Ui& ui) {
  ui.ShowMessage({.Text = "Lomaris has detected that this is a legacy POW file which does not "
                          "contain withdrawal cross section names. By default, the next upstream "
                          "cross section is assigned. Please review these and save the file so "
                          "that it can be properly read by Vesk.",
                  .Title = "Warning"});
}

/// False for a line of a legacy file.
bool ReadXSect(AuxCursor& in, AuxXSect& xsect) {
  const Parameters fields = in.ReadParameters();
  xsect.Node = fields.Number<std::int32_t>(1);
  xsect.Scale[kFlow] = fields.Number<float>(2);
  xsect.Conversion[kFlow] = fields.Number<float>(3);
  if (fields.Count < kXSectFields) {
    xsect.IntakeNode = static_cast<std::int32_t>(std::int64_t{xsect.Node} - 1);
    return false;
  }
  xsect.Scale[kTemperature] = fields.Number<float>(4);
  xsect.Conversion[kTemperature] = fields.Number<float>(5);
  xsect.IntakeNode = fields.Number<std::int32_t>(6);
  return true;
}

void ReadCounts(const AuxLoad& load) {
  AuxData& aux = load.Aux;
  const Parameters fields = load.In.ReadParameters();
  aux.NumTimes = CheckedTimes(fields.Number<std::int32_t>(1));
  aux.NumXSect = CheckedXSects(fields.Number<std::int32_t>(2));
  aux.Interpolation = CheckedByte(fields.Number<std::int16_t>(3));
  aux.HeatLoadType = CheckedByte(fields.Number<std::int16_t>(4));
  aux.NumConst = 1;
  aux.XSect.Resize(Max(1, aux.NumXSect));
  aux.ActiveConst[kFlow] = true;
  aux.ActiveConst[kTemperature] = true;
}

bool ReadHeader(const AuxLoad& load) {
  ReadCounts(load);
  for (std::int32_t i = 1; i <= load.Aux.NumXSect; ++i) {
    AuxXSect& xsect = load.Aux.XSect[i];
    if (!ReadXSect(load.In, xsect)) {
      load.Aux.Modified = true;
      if (i == 1) TellLegacyFile(load.Around.Screen);
    }
    if (!MarkNode(xsect, load)) return false;
  }
  return true;
}

}  // namespace

bool ReadPOW(const AuxLoad& load) {
  if (!ReadHeader(load)) return false;
  if (load.Around.Window == nullptr) return true;
  const SeriesShape shape = {.Slots = 2};
  const auto readRows = [&](std::int32_t step) {
    ReadSlotRow(load, kFlow, step);
    ReadSlotRow(load, kTemperature, step);
  };
  return ReadSeries(load, shape, readRows) && ReadNames(load);
}

void AppendPOW(std::string& out, AuxData& aux, const AuxSurroundings& around) {
  const std::vector<const AuxXSect*> xsects = ActiveXSects(aux);
  aux.NumConst = 1;
  AppendPrintedRow(out, aux.NumTimes, static_cast<std::int32_t>(xsects.size()),
                   std::int16_t{aux.Interpolation}, std::int16_t{aux.HeatLoadType});
  for (const AuxXSect* xsect : xsects) {
    AppendPrintedRow(out, xsect->Node, xsect->Scale[kFlow], xsect->Conversion[kFlow],
                     xsect->Scale[kTemperature], xsect->Conversion[kTemperature],
                     xsect->IntakeNode);
  }
  ReserveSeries(out, aux, 2 * xsects.size());
  StepProgress progress(around.Window, aux.NumTimes);
  for (std::int32_t step = 1; step <= aux.NumTimes; ++step) {
    AppendPrintedRecord(out, aux.Times[step], around.Screen);
    AppendSlotRow(out, xsects, kFlow, step);
    AppendSlotRow(out, xsects, kTemperature, step);
    progress.Step(step);
  }
  AppendTerminator(out);
  AppendNames(out, aux, Names::OfXSectsAndIntakes);
}

}  // namespace lomaris

#include "auxiliary/bmd_view.h"

#include <fmt/format.h>

#include "auxiliary/aux_load.h"
#include "auxiliary/cls_bmd.h"
#include "auxiliary/step_progress.h"
#include "auxiliary/time_series.h"
#include "auxiliary/xsect_names.h"

namespace lomaris {
namespace {

void TakeSegments(AuxData& aux, const clsBMD& bmd) {
  aux.NumXSect = CheckedXSects(bmd.NumSegments());
  aux.XSect.Resize(aux.NumXSect);
  for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
    aux.XSect[i].Node = i;
    aux.XSect[i].Name = bmd.SegName(i);
    aux.ActiveNode[i] = true;
  }
}

/// The header of the file. False, having told it, when a record has no room for its variables.
bool TakeHeader(AuxData& aux, const clsBMD& bmd, const AuxSurroundings& around) {
  aux.Description[1] = "BMD File";
  aux.NumTimes = bmd.NumTimes();
  TakeSegments(aux, bmd);
  if (bmd.NumVars() > kMostSlots) {
    around.Screen.ShowMessage(
        {.Text = fmt::format("There are more variables in the BMD file ({}) than can be "
                             "accommodated by Lomaris ({}).",
                             bmd.NumVars(), kMostSlots),
         .Title = "Error"});
    return false;
  }
  aux.NumConst = bmd.NumVars() - 1;
  for (std::int32_t slot = 1; slot <= bmd.NumVars(); ++slot) aux.ActiveConst[slot] = true;
  TakeNamesOfNodes(aux, 1, around.Hydro);  // a segment is the cross section of its number
  return true;
}

ModelDateTime CheckedDate(ModelDateTime date) {
  if (date >= *DateSerial(100, 1, 1) && date < *DateSerial(9999, 12, 31) + 1) return date;
  throw RuntimeError(ErrorNumber::TypeMismatch, "a time step has no valid date");
}

/// False when the user has given up the window.
bool TakeSeries(AuxData& aux, const clsBMD& bmd, const AuxSurroundings& around) {
  aux.Times.Resize(bmd.NumTimes());
  for (std::int32_t t = 1; t <= bmd.NumTimes(); ++t) aux.Times[t] = CheckedDate(bmd.Time(t));
  StepProgress progress(around.Window, aux.NumXSect, &around.Screen);
  for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
    ValueBlock& values = aux.XSect[i].Values = ValueBlock(bmd.NumVars(), bmd.NumTimes());
    for (std::int32_t t = 1; t <= bmd.NumTimes(); ++t) {
      for (std::int32_t var = 1; var <= bmd.NumVars(); ++var) {
        values(var, t) = bmd.Concs()(var, i, t);
      }
    }
    if (!progress.Step(i)) return false;
  }
  return true;
}

void NameConstituents(Tables& tables, const clsBMD& bmd) {
  for (auto* table :
       {&tables.ConstituentShort, &tables.ConstituentUnits, &tables.ConstituentLong}) {
    if (table->Count() < bmd.NumVars()) table->Resize(bmd.NumVars());
  }
  for (std::int32_t var = 1; var <= bmd.NumVars(); ++var) {
    tables.ConstituentShort[var] = tables.ConstituentLong[var] = bmd.VarName(var);
    tables.ConstituentUnits[var] = bmd.VarUnits(var);
  }
}

}  // namespace

bool ReadModelResults(AuxData& aux, const std::string& path, const AuxSurroundings& around) {
  clsBMD bmd(around.Screen);
  // Names first: a file of gigabytes is refused without being read.
  if (!bmd.ReadBMD(path, true) || !TakeHeader(aux, bmd, around)) return false;
  if (around.Window == nullptr) return true;
  if (aux.NumTimes > MaxSteps(aux)) {
    TellTooManySteps(MaxSteps(aux), around.Screen);
    return false;
  }
  if (!bmd.ReadBMD(path, false) || !TakeSeries(aux, bmd, around)) return false;
  NameConstituents(around.Constituents, bmd);
  return true;
}

}  // namespace lomaris

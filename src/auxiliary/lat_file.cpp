#include "auxiliary/lat_file.h"

#include <vector>

#include <fmt/format.h>

#include "auxiliary/aux_text.h"
#include "auxiliary/step_progress.h"
#include "auxiliary/time_series.h"
#include "auxiliary/xsect_names.h"

namespace lomaris {
namespace {

/// The slots of the columns of a file, in order.
using Columns = std::vector<std::int32_t>;

// --- Reading

Columns ReadColumns(const AuxLoad& load) {
  Columns columns = {1};
  load.Aux.ActiveConst[1] = true;
  for (std::int32_t i = 1; i <= load.Aux.NumConst; ++i) {
    std::int32_t number = 0;
    load.In.ReadByLine(number);
    const std::int32_t slot = CheckedCount(number, kSlotsInUse - 1) + 1;
    if (load.Aux.ActiveConst[slot]) {
      throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                         fmt::format("constituent {} stands twice", number));
    }
    load.Aux.ActiveConst[slot] = true;
    columns.push_back(slot);
  }
  return columns;
}

bool ReadNodes(const AuxLoad& load) {
  for (std::int32_t i = 1; i <= load.Aux.NumXSect; ++i) {
    load.In.ReadByLine(load.Aux.XSect[i].Node);
    if (!MarkNode(load.Aux.XSect[i], load)) return false;
  }
  return true;
}

void ReadFactors(const AuxLoad& load, const Columns& columns,
                 BoundedArray<float> AuxXSect::*factors) {
  load.In.SkipLine();
  for (std::int32_t i = 1; i <= load.Aux.NumXSect; ++i) {
    for (const std::int32_t slot : columns) {
      (load.Aux.XSect[i].*factors)[slot] = load.In.ReadFree<float>();
    }
    load.In.CountXSectRow(i);
  }
}

void ReadCounts(const AuxLoad& load) {
  AuxData& aux = load.Aux;
  std::int16_t interpolation = 0;
  load.In.ReadByLine(aux.NumTimes, aux.NumXSect, interpolation, aux.NumConst);
  CheckedTimes(aux.NumTimes);
  CheckedCount(aux.NumConst, kSlotsInUse - 1);
  aux.Interpolation = CheckedByte(interpolation);
  aux.XSect.Resize(Max(1, CheckedXSects(aux.NumXSect)));
}

bool ReadValues(const AuxLoad& load, const Columns& columns) {
  AuxData& aux = load.Aux;
  const SeriesShape shape = {.Slots = kSlotsInUse};
  return ReadSeries(load, shape, [&](std::int32_t step) {
    for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
      float* const row = aux.XSect[i].Values.Row(step);
      for (const std::int32_t slot : columns) row[slot - 1] = load.In.ReadFree<float>();
      load.In.CountXSectRow(i);
    }
  });
}

// --- Writing

void AppendColumnHeads(std::string& out, std::string_view head, const Columns& columns,
                       const Tables& tables) {
  out += head;
  for (const std::int32_t slot : columns) {
    out.append(1, '\t').append(UpperCase(tables.ConstituentShort[slot]));
  }
  out += kLineBreak;
}

Columns ActiveColumns(const AuxData& aux) {
  Columns columns = {1};
  for (std::int32_t slot = 2; slot <= kSlotsInUse; ++slot) {
    if (aux.ActiveConst[slot]) columns.push_back(slot);
  }
  return columns;
}

/// The values of the columns out of all slots, slot 1 at `slots`.
void AppendColumns(std::string& out, const float* slots, const Columns& columns) {
  for (const std::int32_t slot : columns) {
    AppendNumber(out, slots[slot - 1]);
    out += '\t';
  }
  out.pop_back();
  out += kLineBreak;
}

void AppendFactors(std::string& out, const std::vector<const AuxXSect*>& xsects,
                   const Columns& columns, BoundedArray<float> AuxXSect::*factors) {
  for (const AuxXSect* xsect : xsects) {
    AppendColumns(out, &(xsect->*factors)[1], columns);
  }
}

}  // namespace

bool ReadLAT(const AuxLoad& load) {
  ReadCounts(load);
  if (!ReadNodes(load)) return false;
  const Columns columns = ReadColumns(load);
  for (std::int32_t i = 1; i <= load.Aux.NumConst; ++i) load.In.SkipLine();
  ReadFactors(load, columns, &AuxXSect::Scale);
  ReadFactors(load, columns, &AuxXSect::Conversion);
  if (load.Around.Window == nullptr) return true;
  return ReadValues(load, columns) && ReadNames(load);
}

void AppendLAT(std::string& out, AuxData& aux, const AuxSurroundings& around) {
  const Columns columns = ActiveColumns(aux);
  const std::vector<const AuxXSect*> xsects = ActiveXSects(aux);
  const auto count = static_cast<std::int32_t>(xsects.size());
  aux.NumConst = static_cast<std::int32_t>(columns.size()) - 1;
  AppendRow(out, aux.NumTimes, count, std::int16_t{aux.Interpolation}, aux.NumConst);
  for (const AuxXSect* xsect : xsects) AppendPrintedRow(out, xsect->Node);
  for (std::size_t i = 1; i < columns.size(); ++i) AppendPrintedRow(out, columns[i] - 1);
  for (std::size_t i = 1; i < columns.size(); ++i) {
    AppendLine(out, UpperCase(around.Constituents.ConstituentShort[columns[i]]));
  }
  AppendColumnHeads(out, "SCALE_FACTORS", columns, around.Constituents);
  AppendFactors(out, xsects, columns, &AuxXSect::Scale);
  AppendColumnHeads(out, "CONVERSION_FACTORS", columns, around.Constituents);
  AppendFactors(out, xsects, columns, &AuxXSect::Conversion);

  ReserveSeries(out, aux, xsects.size() * columns.size());
  StepProgress progress(around.Window, aux.NumTimes);
  for (std::int32_t step = 1; step <= aux.NumTimes; ++step) {
    const DateFields record = StepRecord(aux.Times[step], around.Screen);
    AppendRow(out, record.Year, record.Month, record.Day, record.Hour);
    for (const AuxXSect* xsect : xsects) AppendColumns(out, xsect->Values.Row(step), columns);
    progress.Step(step);
  }
  AppendTerminator(out);
  AppendNames(out, aux, Names::OfXSects);
}

}  // namespace lomaris

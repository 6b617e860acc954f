#include "auxiliary/aux_text.h"

#include "auxiliary/time_series.h"

namespace lomaris {

void ReserveSeries(std::string& out, const AuxData& aux, std::size_t valuesPerStep) {
  constexpr std::size_t kLongestNumber = 14;  // "-1.234567E+07" and what separates it
  constexpr std::size_t kLongestRecord = 48;
  const auto steps = static_cast<std::size_t>(aux.NumTimes);
  out.reserve(out.size() + steps * (kLongestRecord + valuesPerStep * kLongestNumber));
}

void AppendDescriptions(std::string& out, const AuxData& aux) {
  for (const std::string& line : aux.Description) AppendLine(out, Trim(JoinLines(line)));
}

DateFields StepRecord(ModelDateTime dateTime, Ui& ui) {
  const DateFields record = BrokenUpDate(dateTime, ui);
  if (record.Year == kTerminatorYear) {
    throw RuntimeError(ErrorNumber::Overflow, "a time step in the year 9999 would end the series");
  }
  return record;
}

void AppendPrintedRecord(std::string& out, ModelDateTime dateTime, Ui& ui) {
  const DateFields record = StepRecord(dateTime, ui);
  AppendPrintedRow(out, record.Year, record.Month, record.Day, record.Hour);
}

void AppendTerminator(std::string& out) {
  AppendPrintedRow(out, kTerminatorYear, std::int16_t{1}, std::int16_t{1}, std::int16_t{0});
}

void AppendNames(std::string& out, const AuxData& aux, Names names) {
  for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
    AppendLine(out, Trim(JoinLines(aux.XSect[i].Name)));
    if (names == Names::OfXSectsAndIntakes) {
      AppendLine(out, Trim(JoinLines(aux.XSect[i].IntakeName)));
    }
  }
}

std::vector<const AuxXSect*> ActiveXSects(const AuxData& aux) {
  std::vector<const AuxXSect*> active;
  for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
    if (IsActive(aux, aux.XSect[i])) active.push_back(&aux.XSect[i]);
  }
  return active;
}

void AppendSlotRow(std::string& out, const std::vector<const AuxXSect*>& xsects, std::int32_t slot,
                   std::int32_t step) {
  if (xsects.empty()) return;
  for (std::size_t i = 0; i < xsects.size(); ++i) {
    if (i > 0) out += '\t';
    AppendNumber(out, xsects[i]->Values(slot, step));
  }
  out += kLineBreak;
}

}  // namespace lomaris

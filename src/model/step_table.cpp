#include "model/step_table.h"

#include "model/input_file.h"

namespace lomaris {

ModelDateTime ComposedDate(DateFields fields, Ui& ui) {
  ModelDateTime dateTime = 0;
  ConvertDateTime(fields.Year, fields.Month, fields.Day, fields.Hour, dateTime, false, ui);
  return dateTime;
}

DateFields BrokenUpDate(ModelDateTime dateTime, Ui& ui) {
  DateFields fields;
  ConvertDateTime(fields.Year, fields.Month, fields.Day, fields.Hour, dateTime, true, ui);
  if (fields.Month == 0) throw RuntimeError(ErrorNumber::Overflow, "a date that no file can hold");
  return fields;
}

void ReadStepTable(ReaderState& in, std::int16_t& count, BoundedArray<TimeStepEntry>& steps,
                   Ui& ui) {
  in.ReadCountedLine(count);
  CheckedCount(count, static_cast<int>(steps.UpperBound()));
  for (int i = 1; i <= count; ++i) {
    DateFields start;
    in.ReadCountedLine(start.Year, start.Month, start.Day, start.Hour, steps[i].Value);
    steps[i].Start = ComposedDate(start, ui);
  }
}

void AppendStepTable(std::string& out, std::int16_t count, const BoundedArray<TimeStepEntry>& steps,
                     Ui& ui) {
  AppendLine(out, PrintedNumber(count));
  for (int i = 1; i <= count; ++i) {
    const DateFields start = BrokenUpDate(steps[i].Start, ui);
    AppendRow(out, start.Year, start.Month, start.Day, start.Hour, steps[i].Value);
  }
}

}  // namespace lomaris

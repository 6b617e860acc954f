#include "editors/step_sheet.h"

#include <optional>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "core/validated.h"
#include "editors/typed_values.h"
#include "spreadsheet/cell_checks.h"

namespace lomaris {
namespace {

constexpr int kFewestEntries = 2;

bool Refuse(Ui& ui, std::string text) {
  ui.ShowMessage({.Text = std::move(text), .Title = "Error"});
  return false;
}

/// The entry in a row; nothing, having told it, when the row makes none.
std::optional<TimeStepEntry> EntryIn(const Sheet& sheet, const StepTable& table, int row,
                                     TimeStepEntry entry, Ui& ui) {
  const std::optional<ModelDateTime> start = sheet.DateOf(row, kStartCol);
  if (!start) {
    std::string text = sheet.TextMatrix(row, kStartCol);
    Validated(text, FieldKind::DateTime, ui);  // tells it
    return std::nullopt;
  }
  entry.Start = *start;
  // A step without a value would be one of 0, with which the model never comes to an end.
  std::string value = sheet.TextMatrix(row, kStepValueCol);
  if (Trim(value).empty()) value = "?";
  const std::string what = fmt::format("{} in row {}", table.Name, row - sheet.FixedRows() + 1);
  if (!TakeNumber(entry.Value, value, what, ui)) return std::nullopt;
  return entry;
}

/// False, having told it, unless each start is larger than the one before.
bool TakeEntries(const Sheet& sheet, const StepTable& table, const StepList& before,
                 std::vector<TimeStepEntry>& entries, Ui& ui) {
  const int count = FilledRows(sheet);
  if (count > kMostTimeSteps) {
    return Refuse(ui,
                  fmt::format("You can enter at most {} {} values.", kMostTimeSteps, table.Name));
  }
  for (int i = 1; i <= count; ++i) {
    const auto entry = EntryIn(sheet, table, sheet.FixedRows() + i - 1, before.Steps[i], ui);
    if (!entry) return false;
    if (!entries.empty() && entry->Start <= entries.back().Start) {
      return Refuse(ui, fmt::format("The {} starting date/time value in row {} is not larger than "
                                    "the previous one.",
                                    table.Name, i));
    }
    entries.push_back(*entry);
  }
  return true;
}

}  // namespace

void SetUpSteps(Sheet& sheet, const StepTable& table, Ui& ui) {
  const std::pair<int, std::string> headings[] = {{kStartCol, "Starting|Date/Time"},
                                                  {kStepValueCol, table.ValueHeading}};
  sheet = Sheet(1 + kFewestEntries, kStepValueCol + 1);
  sheet.SetNumberRows(true);
  sheet.KeepCols = true;
  sheet.SetColHeadings(headings);
  sheet.SetColFormat(kStartCol, {FormatKind::DateTime});
  sheet.SetColFormat(kStepValueCol, {FormatKind::Number, table.ValueRange});
  sheet.Events.BeforeRowDelete = [&sheet, &table, &ui](int first, int count, bool& cancel) {
    // The empty row at the end is no entry.
    const int rows = sheet.Rows() - sheet.FixedRows();
    const int filled = FilledRows(sheet);
    const int lost = Min(first - sheet.FixedRows() + count, filled) - (first - sheet.FixedRows());
    cancel = rows - count < kFewestEntries || (lost > 0 && filled - lost < kFewestEntries);
    if (!cancel) return;
    ui.ShowMessage({.Text = fmt::format("You must have at least two {} entries.", table.Entry),
                    .Title = "Warning",
                    .BoxIcon = Icon::Warning});
  };
}

void FillSteps(Sheet& sheet, const StepList& list) {
  const int count = list.Count;
  sheet.SetRows(sheet.FixedRows());
  sheet.SetRows(sheet.FixedRows() + Max(count + 1, kFewestEntries));
  for (int i = 1; i <= count; ++i) {
    const TimeStepEntry& entry = list.Steps[i];
    const int row = sheet.FixedRows() + i - 1;
    sheet.SetDate(row, kStartCol, entry.Start);
    sheet.SetTextMatrix(row, kStepValueCol, NumberText(entry.Value));
  }
}

bool StoreSteps(const Sheet& sheet, const StepTable& table, ModelDateTime simulationStart,
                const StepList& list, Ui& ui) {
  std::vector<TimeStepEntry> entries;
  if (!TakeEntries(sheet, table, list, entries, ui)) return false;
  if (entries.empty()) {
    return Refuse(ui, fmt::format("You must enter one or more {} values.", table.Name));
  }
  if (entries.front().Start > simulationStart) {
    return Refuse(ui, fmt::format("The first {} starting date/time value ({}) is greater than the "
                                  "simulation starting time ({}).",
                                  table.Name, FormatDate(entries.front().Start, kCellDateMask),
                                  FormatDate(simulationStart, kCellDateMask)));
  }
  list.Count = static_cast<std::int16_t>(entries.size());
  std::int64_t i = 0;
  for (const TimeStepEntry& entry : entries) list.Steps[++i] = entry;
  return true;
}

}  // namespace lomaris

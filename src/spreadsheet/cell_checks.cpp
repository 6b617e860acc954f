#include "spreadsheet/cell_checks.h"

#include "core/numbers.h"
#include "core/text.h"

namespace lomaris {
namespace {

constexpr std::int64_t kMostChoices = 200;

bool WithinLimits(std::string_view list, double value) {
  list = WithoutTrailing(list, ';');
  const std::size_t split = list.find(';');
  if (split == std::string_view::npos || list.find(';', split + 1) != std::string_view::npos) {
    return true;
  }
  return value >= NumericValue(list.substr(0, split)) &&
         value <= NumericValue(list.substr(split + 1));
}

std::optional<Cell> CheckedDate(std::string_view text) {
  const std::optional<ModelDateTime> dateTime = ParseDate(text);
  if (!dateTime) return std::nullopt;
  return DateCell(*dateTime);
}

std::optional<Cell> CheckedNumber(const std::string& list, std::string_view text) try {
  // The limits are held against the number as typed: as a 32-bit float, 0.01 would lie below 0.01.
  if (!WithinLimits(list, ToDouble(text))) return std::nullopt;
  return Cell{NumberText(ToSingle(text))};
} catch (const RuntimeError&) {
  return std::nullopt;
}

}  // namespace

Cell DateCell(ModelDateTime dateTime) {
  return {FormatDate(dateTime, kCellDateMask), dateTime};
}

bool KeyAllowed(FormatKind kind, std::string_view typed) {
  std::string_view keys;
  if (kind == FormatKind::DateTime) keys = " 0123456789/:.,-";
  if (kind == FormatKind::Number) keys = "-0123456789.";
  return keys.empty() || typed.find_first_not_of(keys) == std::string_view::npos;
}

std::string AsTyped(FormatKind kind, std::string_view typed) {
  return kind == FormatKind::UpperText ? UpperCase(typed) : std::string(typed);
}

std::optional<Cell> CheckedText(const Format& format, std::string_view text) {
  if (Trim(text).empty()) return Cell{};
  switch (format.Kind) {
    case FormatKind::DateTime:
      return CheckedDate(text);
    case FormatKind::Number:
      return CheckedNumber(format.List, text);
    default:
      return Cell{std::string(text)};
  }
}

Cell InCenturyOf(const Cell& before, Cell checked, std::string_view typed) {
  if (before.Date == kNoDate || checked.Date == kNoDate) return checked;
  const std::string year = FormatDate(before.Date, "yyyy");
  const std::string typedYear = FormatDate(checked.Date, "yyyy");
  const bool fullYear = typed.find(typedYear) != std::string_view::npos;
  if (fullYear || year.substr(2) != typedYear.substr(2)) return checked;
  if (checked.Text == before.Text) return before;
  const std::optional<ModelDateTime> moved =
      ParseDate(FormatDate(checked.Date, "mm/dd/") + year + FormatDate(checked.Date, " hh:nn"));
  return moved ? DateCell(*moved) : checked;
}

std::vector<std::string> Choices(const Format& format, Ui& ui) {
  std::string list = format.List;
  BoundedArray<std::string> items(1, kMostChoices);
  int count = 0;
  BreakApart(list, items, count, ';', ui);
  return {items.begin(), items.begin() + count};
}

}  // namespace lomaris

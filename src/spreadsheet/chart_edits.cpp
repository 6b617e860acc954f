#include "spreadsheet/chart_edits.h"

#include <cmath>

#include <fmt/format.h>

#include "core/numbers.h"
#include "core/text.h"
#include "spreadsheet/sheet_queries.h"

namespace lomaris {
namespace {

Axis PositionAxis(const ChartData& data) {
  return data.SeriesInRows ? Axis::Cols : Axis::Rows;
}

bool IsOpen(const Sheet& sheet, Axis axis, int line) {
  return !sheet.ReadOnly && sheet.GridEdit && sheet.IsFreeLine(axis, line);
}

/// The mean of two cells that both hold numbers, or both dates, into a third, where that takes it.
void WriteMean(Sheet& sheet, CellPlace a, CellPlace b, CellPlace target) {
  const std::optional<double> first = NumberOf(sheet.TextMatrix(a.Row, a.Col));
  const std::optional<double> second = NumberOf(sheet.TextMatrix(b.Row, b.Col));
  if (first && second) {
    WritePoint(sheet, target, (*first + *second) / 2);
    return;
  }
  if (sheet.FormatOf(b.Row, b.Col).Kind != FormatKind::DateTime) return;
  const std::optional<ModelDateTime> firstDate = sheet.DateOf(a.Row, a.Col);
  const std::optional<ModelDateTime> secondDate = sheet.DateOf(b.Row, b.Col);
  if (firstDate && secondDate) {
    sheet.EndEdit(target.Row, target.Col, (*firstDate + *secondDate) / 2);
  }
}

/// Fills the new line of an area from the line before it, which at the area's start there is none
/// of, and the one behind it.
void FillBetween(Sheet& sheet, const ChartData& data, int position) {
  const int line = data.LineOf(position);
  const int behind = line + 1;
  const int before = position > 0 ? line - 1 : behind;
  const CellArea& area = data.Area;
  if (data.SeriesInRows) {
    for (int row = area.Top; row <= area.Bottom; ++row) {
      WriteMean(sheet, {row, before}, {row, behind}, {row, line});
    }
  } else {
    for (int col = area.Left; col <= area.Right; ++col) {
      WriteMean(sheet, {before, col}, {behind, col}, {line, col});
    }
  }
}

}  // namespace

bool AskXLabels(const Sheet& sheet, ChartState& state, Ui& ui) {
  const bool rows = state.SeriesInRows;
  const char* const line = rows ? "row" : "column";
  const std::string answer = ui.AskText(
      {.Prompt = fmt::format("Enter {} number which contains labels for x-axis (0 is for {}):",
                             line, rows ? "top-most row" : "left-most column"),
       .Title = "X Axis Labels",
       .Proposal = std::to_string(LabelLine(sheet, state))});
  if (Trim(answer).empty()) return false;
  const int last = (rows ? sheet.Rows() : sheet.Cols()) - 1;
  const std::optional<double> number = NumberOf(answer);
  if (!number || *number < 0 || *number > last || *number != std::floor(*number)) {
    ui.ShowMessage(
        {.Text = fmt::format("The {} number must be a whole number from 0 to {}.", line, last),
         .Title = "Error",
         .BoxIcon = Icon::Critical});
    return false;
  }
  state.XLabels = static_cast<int>(*number);
  return true;
}

bool WritePoint(Sheet& sheet, CellPlace place, double value) {
  const bool choice = sheet.FormatOf(place.Row, place.Col).Kind == FormatKind::Choice;
  if (choice || !std::isfinite(value)) return false;
  return sheet.EndEdit(place.Row, place.Col, NumberText(value));
}

bool InsertPoint(Sheet& sheet, const ChartData& data, int position) {
  const Axis axis = PositionAxis(data);
  const int line = data.LineOf(position);
  if (!HasRoomFor(sheet, axis, 1) || !IsOpen(sheet, axis, line)) return false;
  return sheet.AsStep([&] {
    if (!sheet.InsertLines(axis, line, 1)) return false;
    FillBetween(sheet, data, position);
    return true;
  });
}

bool DeletePoint(Sheet& sheet, const ChartData& data, int position) {
  const Axis axis = PositionAxis(data);
  const int line = data.LineOf(position);
  return IsOpen(sheet, axis, line) && sheet.DeleteLines(axis, line, 1);
}

double DecimalStep(double size) {
  return std::pow(10, std::floor(std::log10(size)));
}

double RoundedPoint(double value, double step) {
  // Divided by a whole number, so that a tenth is the tenth that is typed.
  if (step < 1) return std::round(value * std::round(1 / step)) / std::round(1 / step);
  return std::round(value / step) * step;
}

}  // namespace lomaris

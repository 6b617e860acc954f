// What a part of a sheet gives to draw, and what a changed point does to the sheet.

#include <cmath>

#include "spreadsheet/chart_edits.h"
#include "spreadsheet/sheet_fixture.h"

namespace lomaris {
namespace {

class ChartTest : public SheetTest {
 protected:
  /// Column 1 takes dates, the others numbers from 0 to 100.
  void SetDated(const std::string& block) {
    Set(block, FormatKind::Number);
    for (int col = 1; col < sheet_.Cols(); ++col) {
      sheet_.SetColFormat(col, {FormatKind::Number, "0;100"});
      sheet_.SetTextMatrix(0, col, "Q\n" + std::to_string(col));
    }
    sheet_.SetColFormat(1, {FormatKind::DateTime});
    sheet_.SetNumberRows(true);
  }

  /// "X values | labels | name: values | ...", "-" for a gap; no X values where they are 1, 2, ...
  std::string Read(const ChartState& state, const CellArea& area) {
    const ChartData chart = ReadChart(sheet_, area, state);
    if (!chart.Fault.empty()) return chart.Fault;
    std::string text = chart.AtPositions ? "" : Values(chart.X) + "| ";
    for (const std::string& label : chart.Labels) text += label + ' ';
    for (const ChartSeries& series : chart.Series) {
      text += "| " + series.Name + ": " + Values(series.Values);
    }
    return text;
  }

  static std::string Values(const std::vector<double>& values) {
    std::string text;
    for (const double value : values) text += std::isnan(value) ? "- " : NumberText(value) + ' ';
    return text;
  }
};

TEST_F(ChartTest, ReadsSeriesPointsAndLabels) {
  constexpr ChartState kXY{.Type = ChartType::XY};
  const std::string block = "7/1/97,1,4|7/2/97,1E300,5|,x,6";
  const std::tuple<ChartState, CellArea, std::string> rows[] = {
      {{}, {1, 1, 3, 3}, "7/1/97 7/2/97 3 | Q 2: 1 - - | Q 3: 4 5 6 "},
      {{}, {2, 2, 9, 9}, "2 3 | Q 3: 5 6 "},
      {{.XLabels = 3}, {1, 2, 3, 3}, "4 5 6 | Q 2: 1 - - "},
      {{.XLabels = 3}, {1, 3, 1, 3}, "4 | Q 3: 4 "},
      {{.XLabels = 0}, {1, 1, 3, 3}, "1 2 3 | Q 2: 1 - - | Q 3: 4 5 6 "},
      {{.XLabels = 9}, {1, 3, 1, 3}, "1 | Q 3: 4 "},
      {{.SeriesInRows = true}, {1, 2, 3, 3}, "Q 2 Q 3 | 1: 1 4 | 2: - 5 | 3: - 6 "},
      {{.SeriesInRows = true, .XLabels = 2}, {1, 2, 3, 3}, "1E300 5 | 1: 1 4 | 3: - 6 "},
      {{}, {1, 1, 2, 1}, "No numbers are selected."},
      {{}, {9, 9, 12, 12}, "No numbers are selected."},
      {kXY, {1, 1, 3, 3}, "35612 35613 - | 7/1/97 7/2/97 3 | Q 2: 1 - - | Q 3: 4 5 - "},
      {kXY, {1, 3, 2, 3}, "1 2 | Q 3: 4 5 "},
      {kXY, {1, 2, 3, 3}, "X values must be in a date format or numeric: x"}};
  for (const auto& [state, area, expected] : rows) {
    SetDated(block);
    EXPECT_EQ(Read(state, area), expected);
  }
  sheet_.SetFixed(0, 0);
  EXPECT_EQ(Read({}, {1, 2, 2, 3}), "1 2 | Column 3: 1 - | Column 4: 4 5 ");
}

TEST_F(ChartTest, DrawsNoMoreSeriesThanCanBeTold) {
  SetDated("7/1/97,1" + ReplaceAll(std::string(201, '|'), "|", "|,1"));
  for (const int rows : {201, 202}) {
    const ChartData chart = ReadChart(sheet_, {1, 1, rows, 2}, {.SeriesInRows = true});
    EXPECT_TRUE(chart.Series.size() == 200 && chart.SeriesLeftOut == (rows > 201));
  }
}

TEST_F(ChartTest, TheChartedAreaStaysOnItsCells) {
  ChartedArea area({3, 1, 6, 2});
  const std::tuple<bool, int, int, int, int> rows[] = {
      {true, 1, 2, 5, 8},  {true, 5, 1, 5, 9},  {true, 10, 4, 5, 9}, {false, 10, 4, 5, 9},
      {false, 4, 2, 4, 7}, {false, 5, 1, 4, 6}, {false, 6, 9, 4, 5}, {false, 4, 2, 4, 3},
      {true, 4, 2, 4, 5},  {true, 6, 9, 4, 6},  {false, 1, 3, 1, 3}};
  for (const auto& [inserted, first, count, top, bottom] : rows) {
    area.Follow(Axis::Rows, first, count, inserted);
    EXPECT_EQ(area.Area(), (CellArea{top, 1, bottom, 2})) << inserted << first << count;
  }
}

TEST_F(ChartTest, APieTakesWhatIsAboveZeroAndJoinsTheSmallSlices) {
  std::string block = "0,-1|0,|0,0";
  for (int value = 1; value <= 20; ++value) block += "|0," + std::to_string(value);
  SetDated(block);
  const PieSlices pie = SlicesOf(ReadChart(sheet_, {1, 2, 99, 2}, {.Type = ChartType::Pie}));
  std::string slices = std::to_string(pie.LeftOut);
  for (const PieSlice& slice : pie.Slices) slices += ' ' + NumberText(slice.Value);
  EXPECT_EQ(slices, "3 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 15");
  EXPECT_EQ(pie.Slices[0].Label + pie.Slices[15].Label, "9Others");
}

TEST_F(ChartTest, AsksForTheLabels) {
  const std::string range = "Error: The column number must be a whole number from 0 to 3.";
  SetDated("7/1/97,1,4|7/2/97,,5");
  for (const std::string answer : {"3", " ", "4", "-1", "x", "1.5"}) {
    ScriptedUi ui;
    ui.Texts = {answer};
    ChartState state{.XLabels = 1};
    EXPECT_EQ(AskXLabels(sheet_, state, ui), answer == "3") << answer;
    EXPECT_EQ(state.XLabels, answer == "3" ? 3 : 1);
    const std::string told = ui.Messages.empty() ? "" : ui.Messages[0].Title + ": ";
    EXPECT_EQ(told + ui.LastMessage(), answer == "3" || answer == " " ? "" : range);
  }
  ui_.Texts = {"2", ""};
  ChartState rows{.SeriesInRows = true};
  EXPECT_TRUE(AskXLabels(sheet_, rows, ui_) && rows.XLabels == 2);
  rows.SeriesInRows = false;
  EXPECT_FALSE(AskXLabels(sheet_, rows, ui_));
  const std::string of = " number which contains labels for x-axis (0 is for ";
  EXPECT_EQ(ui_.InputBoxes[0].Prompt, "Enter row" + of + "top-most row):");
  EXPECT_EQ(ui_.InputBoxes[1].Prompt, "Enter column" + of + "left-most column):");
  EXPECT_EQ(ui_.InputBoxes[1].Title, "X Axis Labels");
}

TEST_F(ChartTest, WritesAPointBackAsOneStep) {
  const std::string block = "7/1/97,1,40|7/3/97,3,60|7/4/97,,x";
  SetDated(block);
  const auto all = [&] { return Block(sheet_.AllCells()); };
  const ChartData chart = ReadChart(sheet_, {1, 1, 3, 3}, {});
  const ChartData narrow = ReadChart(sheet_, {1, 2, 2, 2}, {});
  const ChartData inRows = ReadChart(sheet_, {1, 1, 2, 3}, {.SeriesInRows = true});
  const std::pair<std::function<bool(double)>, std::string> rows[] = {
      {[&](double to) {
         return WritePoint(sheet_, chart.PlaceOf({1, 1}), to);
       },
       "7/1/97,1,40|7/3/97,3,50.25|7/4/97,,x"},
      {[&](double) { return InsertPoint(sheet_, chart, 1); },
       "7/1/97,1,40|07/02/97 00:00,2,50|7/3/97,3,60|7/4/97,,x"},
      {[&](double) { return InsertPoint(sheet_, narrow, 0); }, ",1,|" + block},
      {[&](double) { return DeletePoint(sheet_, chart, 1); }, "7/1/97,1,40|7/4/97,,x"},
      {[&](double) { return DeletePoint(sheet_, inRows, 1); }, "7/1/97,40|7/3/97,60|7/4/97,x"}};
  for (const auto& [change, after] : rows) {
    sheet_.Modified = false;
    sheet_.ReadOnly = true;
    EXPECT_FALSE(change(50.25) || sheet_.Modified);
    sheet_.ReadOnly = false;
    EXPECT_TRUE(change(50.25) && sheet_.Modified);
    EXPECT_EQ(all(), after);
    EXPECT_TRUE(sheet_.Undo());
    EXPECT_EQ(all(), block);
  }
  sheet_.Events.BeforeRowDelete = [](int, int, bool& cancel) { cancel = true; };
  EXPECT_FALSE(DeletePoint(sheet_, chart, 1)) << "the owner cancels it";
  EXPECT_FALSE(WritePoint(sheet_, chart.PlaceOf({1, 1}), 100.5)) << "beyond the cell's range";
  EXPECT_EQ(RoundedPoint(12.3456789, DecimalStep(0.03)), 12.35);
  EXPECT_EQ(RoundedPoint(-12345, DecimalStep(700)), -12300);
}

}  // namespace
}  // namespace lomaris

// The commands of the edit menu, with what they say.

#include <gmock/gmock.h>

#include "spreadsheet/sheet_fixture.h"

namespace lomaris {
namespace {

using enum FormatKind;
using enum SheetCommand;
using testing::HasSubstr;

TEST_F(SheetTest, PastesInItsThreeWays) {
  const std::tuple<Selection, std::string, std::string> rows[] = {
      // one cell: the text's own size, as far as there are cells
      {{1, 1, 1, 1}, "1\t2\r\n3\t4\r\n", "1,2,c|3,4,f|g,h,i"},
      {{1, 1, 1, 1}, "1\t2\n3\t4\n", "1,2,c|3,4,f|g,h,i"},
      {{3, 2, 3, 2}, "1\t2\r\n3\t4\r\n5\t6", "a,b,c|d,e,f|g,1,2"},
      {{1, 2, 1, 2}, "1\r\n2\t9\r\n", "a,1,c|d,2,f|g,h,i"},
      {{1, 1, 1, 1}, "1\t2\r\n3\r\n\r\n", "1,2,c|3,e,f|,h,i"},
      {{2, 2, 2, 2}, "letters", "a,b,c|d,letters,f|g,h,i"},
      {{1, 1, 1, 1},
       "\"x\ny\"\t\"5\"\" pipe\"\n\"q\"",
       "x y,\"5\"\" pipe\",c|\"\"\"q\"\"\",e,f|g,h,i"},
      // several cells and a block: from the corner, within the selection
      {{3, 3, 2, 2}, "1\t2\t3\r\n4", "a,b,c|d,1,2|g,4,i"},
      {{1, 1, 2, 2}, "1\r\n2\r\n3", "1,b,c|2,e,f|g,h,i"},
      // several cells and one value
      {{1, 1, 3, 2}, "7\r\n", "7,7,c|7,7,f|7,7,i"},
      {{1, 1, 1, 2}, "\"x\r\ny\"\r\n", "x y,x y,c|d,e,f|g,h,i"}};
  for (const auto& [selection, text, all] : rows) {
    Set("a,b,c|d,e,f|g,h,i", Number);
    sheet_.ReadOnlyRows = 1;
    ui_.Clipboard = text;
    Run(Paste, selection);
    EXPECT_EQ(All(), all) << text;
    EXPECT_TRUE(sheet_.Modified);
  }
  Set("a,b,c|d,e,f|g,h,i");
  ui_.Clipboard = "1\t2\r\n3\t4";
  Run(Paste, {2, 2, 2, 2});
  EXPECT_EQ(sheet_.Selected(), (Selection{2, 2, 3, 3}));
  EXPECT_TRUE(sheet_.Undo());
  EXPECT_EQ(sheet_.Selected(), (Selection{2, 2, 2, 2}));
  ui_.Clipboard.clear();
  Run(Paste, {1, 1, 3, 3});
  EXPECT_EQ(All(), "a,b,c|d,e,f|g,h,i") << "there is nothing to paste";
}

TEST_F(SheetTest, AClipboardOfAnySizeIsTakenInOnePassOrRefused) {
  Set("a,b|c,d");
  for (const char c : {'\t', '\n', 'x'}) {
    ui_.Clipboard.assign(std::size_t{65} << 20, c);
    Run(Paste, {1, 1, 1, 1});
  }
  EXPECT_EQ(sheet_.TextMatrix(1, 1), ui_.Clipboard);
  Set("a,b|c,d");
  ui_.Answers = {Answer::Retry, Answer::Abort};  // the report does not take the text's place
  Run(Paste, {1, 1, 2, 2});
  EXPECT_THAT(ui_.LastMessage(), HasSubstr("Error 7 (Out of memory)"));
  EXPECT_EQ(All(), "a,b|c,d");
}

TEST_F(SheetTest, CutSparesReadOnlyCellsAndClearDoesNot) {
  Set("a,b|c,d");
  sheet_.SetReadOnlyRow(1, true);
  Run(Cut, {2, 2, 1, 1});
  EXPECT_EQ(All() + ui_.Clipboard, "a,b|,a\tb\r\nc\td");
  Run(Clear, {1, 1, 1, 1});
  EXPECT_EQ(All(), ",b|,");
}

TEST_F(SheetTest, AReadOnlyTableOffersWhatChangesNothing) {
  Set("1,2|3,4");
  sheet_.ReadOnly = true;
  std::string offered;
  for (const EditMenuItem& item : kEditMenu) {
    if (commands_.Offered(item.Command)) offered += item.Caption;
    Run(item.Command, {1, 1, 2, 2}, {"2"});
  }
  EXPECT_EQ(offered, "&CopySelect A&llS&how Stats");
  EXPECT_EQ(All(), "1,2|3,4");
  EXPECT_EQ(ui_.Clipboard, "1\t2\r\n3\t4");
}

TEST_F(SheetTest, ATableKeepsTheLinesThatItsOwnerGivesMeaning) {
  Set("1,2|3,4");
  sheet_.KeepCols = true;
  Run(Insert, {1, 1, 2, 1});
  EXPECT_EQ(ui_.LastMessage(), "This table keeps its columns.");
  Run(Delete, {1, 1, 1, 2});
  EXPECT_EQ(All(), "3,4");
  sheet_.KeepRows = true;
  EXPECT_FALSE(commands_.Offered(Append) || commands_.Offered(Insert) || commands_.Offered(Delete));
}

std::string NoSeries(const std::string& first) {
  return "Error: You must select a range of cells in a single column beginning with a " + first +
         " before a series can be created.";
}

const std::string kNoSeriesKind =
    "Error: You can only create series in columns containing uppercase text, dates or numbers.";
const std::string kAskHours = "Series: Enter the number of hours between values in the series: [1]";
const std::string kAskStep = "Series: Enter the number to increment values in the series: [1]";
const std::string kAskFactor = "Multiply: Enter the number to multiply each cell by: [1]";
const std::string kAskAddend = "Add: Enter the number to add to each cell: [0]";
const std::string kAskRows = "Append Rows: Enter number of rows to append to bottom of grid: []";
const std::string kNoNumber = "Error: You must enter a valid number.";
const std::string kNotWhole = "Error: You must select entire rows or columns if you want to ";

/// Row 4, where there is one, is read-only. An empty `After`: nothing is changed.
struct CommandCase {
  SheetCommand Command;
  FormatKind Kind;
  std::string Before;
  Selection Selected;
  std::string Answer;
  std::string After;
  std::string Box;  ///< the last one, "title: text"
} const kCommands[] = {
    {Fill, Text, "a,b|c,d", {2, 2, 1, 1}, "", "a,a|a,a", ""},
    {Fill, Text, "a|b|c|d|e", {2, 1, 5, 1}, "", "a|b|b|d|b", ""},
    {Series, DateTime, "1/1/97|", {1, 1, 2, 1}, "36", "01/01/97 00:00|01/02/97 12:00", kAskHours},
    {Series, DateTime, "12/31/97|", {1, 1, 2, 1}, " ", "", kAskHours},
    {Series, DateTime, "12/31/97|", {1, 1, 2, 1}, "x", "", kNoNumber},
    {Series, DateTime, "7/1|", {1, 1, 2, 1}, "", "", NoSeries("valid date")},
    {Series, DateTime, "7/1/97,7/1/97|,", {1, 1, 2, 2}, "", "", NoSeries("valid date")},
    {Series, Number, "1.5|||x|", {1, 1, 5, 1}, "-0.1", "1.5|1.4|1.3|x|1.1", kAskStep},
    {Series, Number, "x|", {1, 1, 2, 1}, "", "", NoSeries("valid number")},
    {Series, UpperText, "|", {1, 1, 2, 1}, "", "", NoSeries("non-empty text value")},
    {Series, Choice, "1|", {1, 1, 2, 1}, "", "", kNoSeriesKind},
    {Multiply, Number, "1,x|0.1,|1E3,05-01", {1, 1, 3, 2}, "3", "3,x|0.3,|3000,05-01", kAskFactor},
    {Multiply, Number, "1", {1, 1, 1, 1}, "x", "", kNoNumber},
    {Multiply, Number, "1", {1, 1, 1, 1}, "", "", kAskFactor},
    {Add, Number, "1,x|0.1,16777216", {1, 1, 2, 2}, "0.2", "1.2,x|0.3,1.677722E+07", kAskAddend},
    {ShowStats,
     Number,
     "1,x|-2,|2,05-01",
     {1, 1, 3, 2},
     "",
     "",
     "Statistics: Number of rows selected = 3\r\nNumber of columns selected = 2\r\n"
     "Total number of numeric cells = 3\r\nMinimum value = -2\r\nMaximum value = 2\r\n"
     "Mean value = 0.333333333333333"},
    {ShowStats,
     Number,
     "x",
     {1, 1, 1, 1},
     "",
     "",
     "Statistics: Number of rows selected = 1\r\nNumber of columns selected = 1\r\n"
     "Total number of numeric cells = 0\r\nMinimum value = \r\nMaximum value = \r\nMean value = "},
    {Append, Number, "1,2", {1, 1, 1, 1}, "2", "1,2|,|,", kAskRows},
    {Append, Number, "1,2", {1, 1, 1, 1}, "0", "", kNoNumber},
    {Append,
     Number,
     "1,2",
     {1, 1, 1, 1},
     "1E300",
     "",
     "Error: You have exceeded the maximum number of cells in the grid (350,000)."},
    {Insert, Number, "1,2|3,4|5,6", {3, 2, 2, 1}, "", "1,2|,|,|3,4|5,6", ""},
    {Insert, Number, "1,2|3,4", {1, 2, 2, 2}, "", "1,,2|3,,4", ""},
    {Insert, Number, "1,2|3,4", {1, 1, 1, 1}, "", "", kNotWhole + "insert."},
    {Delete, Number, "1|2|3|4|5", {3, 1, 5, 1}, "", "1|2|4", ""},
    {Delete, Number, "1,2,3|4,5,6", {1, 1, 2, 2}, "", "3|6", ""},
    {Delete, Number, "1,2", {1, 1, 1, 1}, "", "", kNotWhole + "delete."},
    {Delete, Number, "1|2", {1, 1, 1, 1}, "", "", kNotWhole + "delete."},
    {Delete, Number, "1|2", {1, 1, 1, 1, Axis::Rows}, "", "2", ""},
    {Delete, Number, "1,2", {1, 1, 1, 1, Axis::Cols}, "", "2", ""}};

TEST_F(SheetTest, CommandsChangeTheCellsAsOneStepAndSaySo) {
  for (const CommandCase& row : kCommands) {
    SCOPED_TRACE(row.Before + ' ' + row.After + ' ' + row.Box);
    Set(row.Before, row.Kind);
    if (sheet_.Rows() > 4) sheet_.SetReadOnlyRow(4, true);
    ui_ = {};
    Run(row.Command, row.Selected, {row.Answer});
    EXPECT_EQ(All(), row.After.empty() ? row.Before : row.After);
    EXPECT_EQ(sheet_.Modified, !row.After.empty());
    std::string box;
    for (const InputBox& b : ui_.InputBoxes)
      box = b.Title + ": " + b.Prompt + " [" + b.Proposal + "]";
    for (const MessageBox& b : ui_.Messages) box = b.Title + ": " + b.Text;
    EXPECT_EQ(box, row.Box);
    sheet_.Undo();
    EXPECT_EQ(All(), row.Before);
  }
}

TEST_F(SheetTest, ASeriesOfTextsCountsTheNumberAtTheirEnd) {
  const std::tuple<FormatKind, const char*, const char*> rows[] = {
      {UpperText, "XS8||", "XS8|XS9|XS10"},
      {UpperText, "XS009||", "XS009|XS010|XS011"},
      {UpperText, "XS||", "XS|XS1|XS2"},
      {NumberedText, "a1b099|", "a1b099|a1b100"},
      {NumberedText, "99999999999999999999|", "99999999999999999999|100000000000000000000"}};
  for (const auto& [kind, before, after] : rows) {
    Set(before, kind);
    Run(Series, {1, 1, sheet_.Rows() - 1, 1});
    EXPECT_EQ(All(), after);
  }
}

TEST_F(SheetTest, ACommandThatFailsHalfwayChangesNothing) {
  Set("1|2|3E38", Number);
  ui_.Answers = {Answer::Abort, Answer::Ignore};
  Run(Multiply, {1, 1, 3, 1}, {"1000"});
  EXPECT_THAT(ui_.LastMessage(), HasSubstr("6 (Overflow: not a finite number)"));
  Set("05/01/97 00:00||", DateTime);
  Run(Series, {1, 1, 3, 1}, {"1E9"});
  EXPECT_EQ(All(), "05/01/97 00:00||");
  EXPECT_FALSE(sheet_.CanUndo() || sheet_.Modified);
  Set("1E308|1E308");
  Run(ShowStats, {1, 1, 2, 1});
  EXPECT_THAT(ui_.LastMessage(), testing::EndsWith("Mean value = 1E+308"));
}

}  // namespace
}  // namespace lomaris

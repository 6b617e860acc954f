// What a cell takes, what a sheet keeps, and how steps are undone.

#include <random>

#include <fmt/format.h>

#include "core/error_of.h"
#include "spreadsheet/cell_checks.h"
#include "spreadsheet/format_string.h"
#include "spreadsheet/sheet_fixture.h"

namespace lomaris {
namespace {

using enum FormatKind;

TEST(CheckedText, TakesWhatTheKindTakes) {
  const std::string no = "refused";
  const std::tuple<Format, const char*, std::string> rows[] = {
      {{Number, "0.01;1"}, "0", no},
      {{Number, "0.01;1"}, "1.5", no},
      {{Number, "0.01;1"}, "0.01", "0.01"},
      {{Number, "0.01;1"}, " 1.00 ", "1"},
      {{Number, "5;"}, "1", "1"},
      {{Number, "5;6;7"}, "1", "1"},
      {{Number, "5;6;;"}, "1", no},
      {{Number}, "0.123456789", "0.1234568"},
      {{Number}, "-1E-5", "-1E-05"},
      {{Number}, "1x", no},
      {{Number}, "1E39", no},
      {{Number, "1;2"}, "  ", ""},
      {{DateTime}, "5/1/2031", "05/01/31 00:00"},
      {{DateTime}, "13/1/97", no},
      {{DateTime}, " ", ""},
      {{UpperText}, " as typed", " as typed"},
      {{Choice, "Yes;No;"}, "Yes", "Yes"}};
  for (const auto& [format, text, stored] : rows) {
    const std::optional<Cell> cell = CheckedText(format, text);
    EXPECT_EQ(cell ? cell->Text : no, stored) << text;
  }
  EXPECT_TRUE(KeyAllowed(Number, "-12.5") && KeyAllowed(DateTime, "1/2/97 10:00") &&
              KeyAllowed(Text, "\u00e9") && !KeyAllowed(Number, "E") && !KeyAllowed(DateTime, "x"));
  EXPECT_EQ(AsTyped(UpperText, "xs\u00e9") + AsTyped(NumberedText, "xs"), "XS\u00c9xs");
  ScriptedUi ui;
  EXPECT_EQ(Choices({Choice, "a;b c;"}, ui), (std::vector<std::string>{"a", "b c"}));
  EXPECT_EQ(ErrorOf([&] {
              Choices({Choice, ReplaceAll(std::string(201, 'x'), "x", "x;")}, ui);
            }),
            9);
  EXPECT_TRUE(ui.LastMessage().ends_with("\r\nMaximum array size: 200"));
}

TEST_F(SheetTest, KeepsFormatsAndNumbersWithTheirRowsAndColumns) {
  Set("a,b|c,d|e,f");
  sheet_.SetNumberRows(true);
  sheet_.SetCellFormat(3, 2, {Choice, "x;y"});
  sheet_.SetColFormat(2, {Number, "0;1"});
  sheet_.SetReadOnlyRow(3, true);
  ASSERT_TRUE(sheet_.InsertLines(Axis::Rows, 2, 2) && sheet_.InsertLines(Axis::Cols, 1, 1));
  EXPECT_EQ(Block({0, 0, 5, 3}), ",,,|1,,a,b|2,,,|3,,,|4,,c,d|5,,e,f");
  EXPECT_TRUE(sheet_.IsReadOnly(5, 1) && !sheet_.IsReadOnly(4, 1));
  EXPECT_EQ(sheet_.FormatOf(5, 3), (Format{Choice, "x;y"}));
  EXPECT_EQ(sheet_.FormatOf(4, 3), (Format{Number, "0;1"}));
  sheet_.SetRows(5);
  sheet_.SetRows(6);
  EXPECT_EQ(Block({4, 0, 5, 3}), "4,,c,d|5,,,");
  EXPECT_EQ(sheet_.FormatOf(5, 3).Kind, Number);
  sheet_.AddItem("9\tx\ty\tz\tbeyond");
  sheet_.SetColHeadings(std::vector<std::pair<int, std::string>>{{1, "Time Step|(sec)"}});
  EXPECT_EQ(Block({6, 0, 6, 3}) + sheet_.TextMatrix(0, 1), "6,x,y,zTime Step\n(sec)");
  EXPECT_FALSE(sheet_.CanUndo()) << "what the owner loads is no step";
  EXPECT_EQ(ErrorOf([&] { sheet_.SetTextMatrix(7, 0, ""); }), 9);
  EXPECT_EQ(ErrorOf([&] { sheet_.SetRows(2'000'000'000); }), 7);
  EXPECT_EQ(sheet_.Rows(), 7);
}

TEST_F(SheetTest, LooksMoveWithTheirCellsAndComeBackWithThem) {
  Set("a,b|c,d|e,f");
  sheet_.SetFixedAlignment(2, Alignment::Right);
  sheet_.SetColAlignment(2, Alignment::Center);
  sheet_.SetCellAlignment(2, 2, Alignment::Left);
  sheet_.SetCellFontBold(2, 2, true);
  sheet_.SetCellFormat(2, 2, {Choice, "x;y"});
  sheet_.SetCellFormat(2, 2, {});
  ASSERT_TRUE(sheet_.DeleteLines(Axis::Rows, 2, 1) && sheet_.DeleteLines(Axis::Cols, 2, 1));
  ASSERT_TRUE(sheet_.Undo() && sheet_.Undo() && sheet_.InsertLines(Axis::Rows, 1, 1));
  EXPECT_EQ(sheet_.CellAlignment(0, 2), Alignment::Right);
  EXPECT_EQ(sheet_.CellAlignment(1, 2), Alignment::Center);
  EXPECT_EQ(sheet_.CellAlignment(3, 2), Alignment::Left);
  EXPECT_TRUE(sheet_.CellFontBold(3, 2) && !sheet_.CellFontBold(2, 2));
  EXPECT_EQ(sheet_.FormatOf(3, 2).Kind, Text);
}

TEST_F(SheetTest, AClipFillsTheSelection) {
  Set("a,b,c|d,e,f|g,h,i");
  sheet_.SelectArea({2, 2, 3, 3});
  EXPECT_EQ(sheet_.Clip(), "e\tf\r\nh\ti");
  sheet_.SetClip("1\t2\t3\r\n4\r5");
  EXPECT_EQ(All(), "a,b,c|d,1,2|g,4,i");
}

TEST_F(SheetTest, AFormatStringNamesAndAlignsItsColumns) {
  Set("a|b");
  sheet_.SetNumberRows(true);
  SetHeads(sheet_, ReadFormatString("|>Depth|^;|||Last"));
  EXPECT_EQ(Block({0, 0, 3, 2}), ",Depth,|1,a,|2,b,|Last,,");
  EXPECT_EQ(sheet_.CellAlignment(1, 1), Alignment::Right);
  EXPECT_EQ(sheet_.FixedAlignment(2), Alignment::Center);
  sheet_ = Sheet(0, 0, 0, 0);
  SetHeads(sheet_, ReadFormatString("a|b"));
  EXPECT_EQ(Block({0, 0, 0, 1}), "a,b");
  SetHeads(sheet_, ReadFormatString(""));
}

TEST_F(SheetTest, ReadOnlyRangesBeginBehindTheFixedOnes) {
  Set("a,b,c|d,e,f|g,h,i");
  sheet_.ReadOnlyRows = sheet_.ReadOnlyCols = 1;
  EXPECT_FALSE(sheet_.EndEdit(1, 2, "x") || sheet_.EndEdit(2, 1, "x") || sheet_.EndEdit(0, 2, "x"));
  EXPECT_TRUE(sheet_.EndEdit(2, 2, "x"));
  EXPECT_EQ(All(), "a,b,c|d,x,f|g,h,i");
}

TEST_F(SheetTest, AFullDateStaysBehindItsText) {
  Set(",|,|,|", DateTime);
  const ModelDateTime date = *ParseDate("5/1/2031 06:30");
  sheet_.SetDate(1, 1, date);
  sheet_.SetTextMatrix(1, 1, "05/01/31 06:30");
  EXPECT_TRUE(sheet_.EndEdit(1, 1, "05/01/31 06:30"));
  Run(SheetCommand::Copy, {1, 1, 2, 1});
  EXPECT_EQ(ui_.Clipboard, "05/01/31 06:30\r\n");
  Run(SheetCommand::Paste, {3, 1, 3, 1});
  Run(SheetCommand::Fill, {1, 1, 1, 2});
  EXPECT_TRUE(sheet_.InsertLines(Axis::Rows, 1, 1));
  sheet_.Undo();
  sheet_.Redo();
  for (const CellPlace place : {CellPlace{2, 1}, {4, 1}, {2, 2}}) {
    EXPECT_EQ(sheet_.DateOf(place.Row, place.Col), date) << place.Row << place.Col;
  }
  const std::tuple<const char*, const char*> typed[] = {{"5/2/31", "5/2/2031"},
                                                        {"5/2/1931", "5/2/1931"},
                                                        {"5/2/31 01:00", "5/2/1931 01:00"},
                                                        {"5/2/29", "5/2/2029"}};
  for (const auto& [text, meant] : typed) {
    EXPECT_TRUE(sheet_.EndEdit(2, 1, text));
    EXPECT_EQ(sheet_.DateOf(2, 1), ParseDate(meant)) << text;
  }
  sheet_.SetTextMatrix(2, 2, "no date");
  EXPECT_EQ(sheet_.DateOf(2, 2), std::nullopt);
}

/// An owner that writes down the row events, refuses those that it is told to, and keeps a cell in
/// step with the table.
struct Owner {
  explicit Owner(Sheet& sheet) {
    const auto before = [this](const std::string& what) {
      return [this, what](int first, int count, bool& cancel) {
        const std::string event = what + std::to_string(first) + '+' + std::to_string(count);
        Heard += event + ' ';
        cancel = !Refused.empty() && event.starts_with(Refused);
      };
    };
    sheet.Events.BeforeRowInsert = before("I");
    sheet.Events.BeforeRowDelete = before("D");
    sheet.Events.AfterRowInsert = [this](int, int) { Heard += "i "; };
    sheet.Events.AfterRowDelete = [this](int, int) { Heard += "d "; };
    sheet.Events.Change = [this, &sheet] {
      Heard += "c ";
      sheet.SetTextMatrix(0, 0, "rows: " + std::to_string(sheet.Rows()));
    };
  }
  std::string Heard;
  std::string Refused;
};

TEST_F(SheetTest, RowEventsComeWithUndoAndRedoAndMayCancelThem) {
  Set("a|b|c|d");
  sheet_.SetReadOnlyRow(2, true);
  sheet_.SetTextMatrix(0, 0, "loaded");
  Owner owner(sheet_);
  const auto heard = [&] { return std::exchange(owner.Heard, ""); };
  Run(SheetCommand::Delete, {1, 1, 4, 1});
  EXPECT_EQ(All() + ' ' + heard(), "b D3+2 d D1+1 d c ");
  EXPECT_TRUE(sheet_.Undo());
  EXPECT_EQ(All() + ' ' + heard(), "a|b|c|d I1+1 i I3+2 i c ");
  EXPECT_EQ(sheet_.TextMatrix(0, 0), "loaded") << "the owner's writes belong to the step";
  EXPECT_TRUE(sheet_.ReadOnlyRow(2));
  owner.Refused = "D1";
  EXPECT_FALSE(sheet_.Redo());
  EXPECT_EQ(All() + ' ' + heard(), "a|b|c|d D3+2 d D1+1 I3+2 i ");
  owner.Refused = "D";
  Run(SheetCommand::Delete, {3, 1, 3, 1, Axis::Rows});
  EXPECT_EQ(All() + ' ' + heard(), "a|b|c|d D3+1 ");
  owner.Refused = "I";
  Run(SheetCommand::Append, {}, {"1"});
  Run(SheetCommand::Insert, {1, 1, 2, 1});
  EXPECT_EQ(All() + ' ' + heard(), "a|b|c|d I5+1 I1+1 ");
  EXPECT_TRUE(sheet_.Redo());
  EXPECT_FALSE(sheet_.Undo() || !sheet_.CanUndo());
  EXPECT_EQ(All() + ' ' + heard(), "b D3+2 d D1+1 d c I1+1 ");
}

TEST_F(SheetTest, AnyCommandsAreUndoneToTheFirstStateAndRedoneToTheLast) {
  for (unsigned seed = 1; seed <= 30; ++seed) {
    std::mt19937 random(seed);
    const auto upTo = [&](int most) {
      return static_cast<int>(random() % static_cast<unsigned>(most));
    };
    Set("1,2,xs9|4,5,6|7,,9|05/01/97,2,3", seed % 2 == 0 ? Number : UpperText);
    sheet_.SetNumberRows(true);
    sheet_.SetCellFormat(3, 2, {Choice, "1;2"});
    sheet_.SetReadOnlyRow(2, true);
    const auto state = [&] {
      std::string all = Block({0, 0, sheet_.Rows() - 1, sheet_.Cols() - 1});
      for (int row = 1; row < sheet_.Rows(); ++row) {
        all += sheet_.ReadOnlyRow(row) ? 'r' : '.';
        for (int col = 1; col < sheet_.Cols(); ++col) {
          all += std::to_string(static_cast<int>(sheet_.FormatOf(row, col).Kind));
        }
      }
      return all;
    };
    std::vector<std::string> states = {state()};
    for (int i = 0; i < 30; ++i) {
      const int rows = sheet_.Rows(), cols = sheet_.Cols();
      const bool whole = upTo(3) == 0;
      Run(static_cast<SheetCommand>(upTo(13)),
          {upTo(rows), whole ? 0 : upTo(cols), upTo(rows), whole ? cols : upTo(cols)}, {"2"});
      if (state() != states.back()) states.push_back(state());
    }
    std::vector<std::string> back = {state()};
    while (sheet_.Undo()) {
      if (state() != back.back()) back.push_back(state());
    }
    EXPECT_TRUE(std::equal(states.rbegin(), states.rend(), back.begin(), back.end())) << seed;
    while (sheet_.Redo()) {
    }
    EXPECT_EQ(state(), states.back()) << seed;
  }
}

TEST_F(SheetTest, TheHistoryIsBoundedButKeepsTheLatestStep) {
  Set("0");
  for (int i = 1; i <= 300; ++i) sheet_.EndEdit(1, 1, std::to_string(i));
  int undone = 0;
  while (sheet_.Undo()) ++undone;
  EXPECT_EQ(std::to_string(undone) + ' ' + All(), "200 100");
  for (std::size_t i = 0; i < 4; ++i) sheet_.EndEdit(1, 1, std::string((50U << 20) + i, 'x'));
  for (undone = 0; sheet_.Undo();) ++undone;
  EXPECT_EQ(undone, 2);
  sheet_.ReadOnly = true;
  EXPECT_FALSE(sheet_.CanRedo());
}

TEST_F(SheetTest, AStepThatFailsIsTakenBackWithTheOwnersTables) {
  Set("1|2|3|4");
  int rows = 4, calls = 0, failing = 0;
  const auto event = [&](int by) {
    return [&, by](int, int count, auto&&...) {
      if (++calls == failing) throw RuntimeError(ErrorNumber::Overflow);
      rows += by * count;
    };
  };
  sheet_.Events = {[&] { event(0)(0, 0); }, event(1), event(-1), event(0), event(0)};
  const auto errorAt = [&](int call, const std::function<void()>& act) {
    calls = 0;
    failing = call;
    return ErrorOf(act);
  };
  const auto state = [&] { return fmt::format("{} {} {}", All(), rows, sheet_.Modified); };
  for (int call = 1; call <= 3; ++call) {
    EXPECT_EQ(errorAt(call, [&] { sheet_.InsertLines(Axis::Rows, 1, 1); }), 6) << call;
  }
  EXPECT_EQ(errorAt(0, [&] { sheet_.InsertLines(Axis::Rows, 1, 1'000'000'000); }), 7);
  EXPECT_EQ(state(), "1|2|3|4 4 false");
  sheet_.SetReadOnlyRow(3, true);
  Run(SheetCommand::Delete, {2, 1, 4, 1});
  sheet_.Modified = false;
  for (int call = 1; call <= 5; ++call) EXPECT_EQ(errorAt(call, [&] { sheet_.Undo(); }), 6);
  EXPECT_EQ(state(), "1|3 2 false");
}

TEST_F(SheetTest, FindsTheNextTextAndJumpsByBlocks) {
  Set("Ab,,x|,,y|ab,q,|,,z");
  const auto found = [&](const char* text, CellPlace from) {
    const std::optional<CellPlace> place = FindNext(sheet_, text, from);
    return place ? std::to_string(place->Row * 10 + place->Col) : "none";
  };
  EXPECT_EQ(found("AB", {1, 1}) + found("ab", {3, 1}) + found("q", {3, 2}) + found("Ab", {0, 0}),
            "31113211");
  EXPECT_EQ(found("", {1, 1}) + found("w", {1, 1}), "nonenone");
  EXPECT_EQ(FindPrevious(sheet_, "ab", {3, 1}), (CellPlace{1, 1}));
  EXPECT_EQ(FindPrevious(sheet_, "z", {1, 1}), (CellPlace{4, 3}));
  using enum Direction;
  const std::tuple<CellPlace, Direction, CellPlace> jumps[] = {
      {{1, 1}, Right, {1, 3}}, {{1, 1}, Down, {3, 1}}, {{3, 1}, Down, {4, 1}},
      {{1, 3}, Down, {2, 3}},  {{2, 3}, Down, {4, 3}}, {{4, 3}, Up, {2, 3}},
      {{2, 3}, Left, {2, 1}},  {{4, 1}, Up, {3, 1}},   {{1, 2}, Up, {1, 2}}};
  for (const auto& [from, direction, target] : jumps) {
    EXPECT_EQ(JumpTarget(sheet_, from, direction), target) << from.Row << from.Col;
  }
}

TEST_F(SheetTest, SaysWhatIsSelected) {
  Set("1,x|2.5,|1E308,1E308");
  const std::pair<CellArea, const char*> cases[] = {
      {{2, 1, 2, 1}, "Row 2, column 1"},
      {{1, 1, 2, 2}, "Rows 1 to 2, columns 1 to 2: 2 numbers, sum 3.5, mean 1.75"},
      {{1, 1, 1, 2}, "Row 1, columns 1 to 2: 1 number, sum 1, mean 1"},
      {{1, 2, 2, 2}, "Rows 1 to 2, column 2: 0 numbers"},
      {{3, 1, 3, 2}, "Row 3, columns 1 to 2: 2 numbers"},  // no number holds their sum
  };
  for (const auto& [area, expected] : cases) {
    sheet_.SelectArea(area);
    EXPECT_EQ(SelectionSummary(sheet_), expected);
  }
}

}  // namespace
}  // namespace lomaris

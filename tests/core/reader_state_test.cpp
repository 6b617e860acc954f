#include "core/reader_state.h"

#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/error_of.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

class Reading : public testing::Test {
 protected:
  /// The first line of `text`, read into the variables.
  template <class... Variables>
  void Read(std::string_view text, Variables&... variables) {
    ReaderState(ui_, folder_.Write("in.txt", text)).ReadLine(variables...);
  }

  ScriptedUi ui_;
  TempFolder folder_;
};

TEST_F(Reading, GoesFromLineToLine) {
  std::string all;
  for (const char* bytes :
       {"", "\n", "a\r\n\r\n b\tc \n", "a\r\r\nb\r", "\t a \t\n ", "\xB0\x46\r\n"}) {
    ReaderState in(ui_, folder_.Write("in.txt", bytes));
    for (std::string line; !in.AtEnd(); all += '[' + line + ']') in.ReadLine(line);
    std::string behind = " ";
    in.ReadLine(behind);
    all += std::to_string(in.LineNumber) + behind;
    EXPECT_EQ(ErrorOf([&] { in.ReadCountedLine(behind); }), 62);
  }
  EXPECT_EQ(all, "1 []2 [a][][b\tc]4 [a][b]3 [\t a \t][]3 [°F]2 ");
}

TEST_F(Reading, FieldsAreSeparatedByBlanksUnlessATextIsAmongThem) {
  float a = 0, b = 0, c = 0;
  Read(" 1   2\t \t3  left over\t", a, b, c);
  EXPECT_EQ((std::vector{a, b, c}), (std::vector<float>{1, 2, 3}));
  std::string text, other = "as it was";
  Read("-1.5\t a  \rb \t 7 \t", a, text, b, other);
  EXPECT_EQ((std::vector{a, b}), (std::vector{-1.5F, 7.0F}));
  EXPECT_EQ(text + "," + other, "a  b,");
}

TEST_F(Reading, LogicalsDependOnTheirPlace) {
  const std::pair<std::string, std::array<int, 3>> rows[] = {
      // as a logical, as a number that is not the last of its line, and that is; -1: refused
      {"1", {1, 1, 1}},       {".TRUE.", {1, 1, 1}},   {".true.", {1, -1, 1}},
      {".FALSE.", {0, 0, 0}}, {".False.", {0, -1, 0}}, {"true", {1, -1, -1}},
      {"1.0x", {1, -1, -1}},  {"2", {0, 2, 2}},        {"T", {0, -1, -1}}};
  for (const auto& [field, expected] : rows) {
    ui_.Answers.assign(4, Answer::Ignore);
    bool logical = expected[0] == 0;
    int middle = -1, last = -1;
    Read(field + " " + field + " " + field, logical, middle, last);
    EXPECT_EQ((std::array{int{logical}, middle, last}), expected) << field;
  }
}

TEST_F(Reading, AtMostFortyFields) {
  std::string line = "1", text;
  for (int i = 2; i <= 40; ++i) line += "\t" + std::to_string(i);
  float a = 0;
  Read(line + "\t\t", a, text);
  EXPECT_EQ(text, "2");
  line += "\t41";
  for (const std::string behind : {"\t42", ""}) {
    EXPECT_EQ(ErrorOf([&] { Read(line + behind, a); }), 9);
    EXPECT_EQ(ErrorOf([&] { Read(line + behind, a, text); }), 9);
  }
  EXPECT_EQ(ui_.Messages.size(), 2u);  // none where it is not the last field that is too many
  for (const MessageBox& box : ui_.Messages) {
    EXPECT_EQ(box.Text, "Array bounds exceeded in BreakApart:\r\n\r\nInput string: " + line +
                            "\r\nMaximum array size: 40");
  }
}

TEST_F(Reading, ABadFieldIsReportedWithItsLine) {
  for (const Answer answer : {Answer::Ignore, Answer::Abort}) {
    ui_.Answers = {Answer::Retry, answer};
    ReaderState in(ui_, folder_.Write("in.txt", "title\r\n\r\n 1 \t x  3\r\n5 6 7 8"));
    in.ReadRawLine();
    in.ReadRawLine();
    float a = 9, b = 9, c = 9;
    in.ReadLine(a, b, c);
    EXPECT_EQ(100 * a + 10 * b + c, answer == Answer::Ignore ? 193 : 199);
    EXPECT_TRUE(ui_.Answers.empty());
    EXPECT_THAT(
        ui_.LastMessage(),
        testing::HasSubstr(
            "Error 13 (Type mismatch: \"x\" is not a number) in procedure \"ReadLine; error "
            "occurred on line 4 of file:\r\n\r\n 1 \t x  3\" of Module \"modCommon\""));
    in.ReadLine(a);  // the reader goes on with its next statement
    EXPECT_EQ(a, 5);
  }
}

}  // namespace
}  // namespace lomaris

#include "core/reader_state.h"

#include <chrono>

#include <gtest/gtest.h>

#include "core/error_of.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

class Reading : public testing::Test {
 protected:
  std::string File(std::string_view bytes) const { return folder_.Write("in.txt", bytes); }

  /// The one line `text`, read into the variables.
  template <class... Variables>
  void Read(std::string_view text, Variables&... variables) {
    ReaderState(ui_, File(text)).ReadLine(variables...);
  }

  ScriptedUi ui_;

 private:
  TempFolder folder_;
};

TEST_F(Reading, GoesFromLineToLine) {
  const std::pair<std::string, std::vector<std::string>> rows[] = {
      {"", {}},
      {"\n", {""}},
      {"a\r\n\r\n b\tc \n", {"a", "", "b\tc"}},
      {"a\r\r\nb\r", {"a\r", "b"}},
      {"\t a \t\n ", {"\t a \t", ""}},
      {std::string("\0a\0\nb", 5), {std::string("\0a\0", 3), "b"}},
      {"\xB0\x46\r\n", {"°F"}}};
  for (const auto& row : rows) {
    ReaderState in(ui_, File(row.first));
    std::vector<std::string> lines;
    std::string line;
    for (; !in.AtEnd(); lines.push_back(line)) in.ReadLine(line);
    EXPECT_EQ(lines, row.second);
    line = "as it was";
    std::int16_t number = 7;
    in.ReadLine(line);
    in.ReadLine(number, line);
    EXPECT_EQ(line + std::to_string(number), "as it was7");
    EXPECT_EQ(in.LineNumber, 1 + static_cast<int>(lines.size()));
    EXPECT_EQ(ErrorOf([&] { in.ReadCountedLine(number); }), 62);
    EXPECT_EQ(ErrorOf([&] { in.ReadRawLine(); }), 62);
  }
}

TEST_F(Reading, FieldsAreSeparatedByBlanksUnlessATextIsAmongThem) {
  float a = 0, b = 0, c = 0;
  Read(" 1   2\t \t3  left over\t", a, b, c);
  EXPECT_EQ((std::vector{a, b, c}), (std::vector<float>{1, 2, 3}));

  std::string text, other = "as it was";
  std::int16_t whole = 0;
  Read("-1.5\t a \rb \t 7 \t", a, text, whole, other);
  EXPECT_EQ(a, -1.5F);
  EXPECT_EQ(text + "," + other, "a b,");
  EXPECT_EQ(whole, 7);

  ui_.Answers = {Answer::Ignore, Answer::Ignore};  // the first field, and the one that is missing
  Read("1   2\t3", a, text, b);
  EXPECT_EQ(text, "3");
  EXPECT_EQ(ui_.Messages.size(), 2u);
}

TEST_F(Reading, LogicalsDependOnTheirPlace) {
  struct Row {
    const char* Field;
    bool IsTrue;
    int Middle, Last;  ///< as a number; -1: type mismatch
  };
  const Row rows[] = {{"1", true, 1, 1},        {".TRUE.", true, 1, 1},    {".true.", true, -1, 1},
                      {".FALSE.", false, 0, 0}, {".False.", false, -1, 0}, {"TRUE", true, -1, -1},
                      {"true", true, -1, -1},   {"1.0x", true, -1, -1},    {"2", false, 2, 2},
                      {"T", false, -1, -1},     {"YES", false, -1, -1}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.Field);
    ui_.Answers.assign(4, Answer::Ignore);
    const std::string field = row.Field;
    bool middleIsTrue = !row.IsTrue, lastIsTrue = !row.IsTrue;
    Read(field + " " + field, middleIsTrue, lastIsTrue);
    EXPECT_TRUE(middleIsTrue == row.IsTrue && lastIsTrue == row.IsTrue);
    std::int32_t middle = -1, last = -1, middleByTabs = -1, lastByTabs = -1;
    std::string text;
    Read(field + " " + field, middle, last);
    Read(field + "\tx\t" + field, middleByTabs, text, lastByTabs);
    EXPECT_TRUE(middle == row.Middle && middleByTabs == row.Middle);
    EXPECT_TRUE(last == row.Last && lastByTabs == row.Last);
  }
}

TEST_F(Reading, AtMostFortyFields) {
  struct Row {
    int Fields;
    const char* Behind;
    int Error;
    std::size_t Told;
  };
  const Row rows[] = {{40, "\t\t", 0, 0}, {41, "", 9, 2}, {41, "\t", 9, 2}, {42, "", 9, 0}};
  for (const Row& row : rows) {
    std::string line = "1", text;
    for (int i = 2; i <= row.Fields; ++i) line += "\t" + std::to_string(i);
    ui_.Messages.clear();
    float a = 0, b = 0;
    EXPECT_EQ(ErrorOf([&] { Read(line + row.Behind, a, b); }), row.Error);
    EXPECT_EQ(ErrorOf([&] { Read(line + row.Behind, a, text); }), row.Error);
    EXPECT_EQ(text, row.Error == 0 ? "2" : "");
    EXPECT_EQ(ui_.Messages.size(), row.Told);
    for (const MessageBox& box : ui_.Messages) {
      EXPECT_EQ(box.Text, "Array bounds exceeded in BreakApart:\r\n\r\nInput string: " + line +
                              "\r\nMaximum array size: 40");
    }
  }
}

TEST_F(Reading, ABadFieldIsReportedWithItsLine) {
  const std::pair<std::deque<Answer>, std::vector<float>> rows[] = {
      {{Answer::Ignore, Answer::Ignore}, {1, 9, 3, 9}},
      {{Answer::Ignore, Answer::Abort}, {1, 9, 3, 9}},
      {{Answer::Retry, Answer::Retry, Answer::Abort}, {1, 9, 9, 9}}};
  for (const auto& row : rows) {
    ui_.Messages.clear();
    ui_.Answers = row.first;
    ReaderState in(ui_, File("title\r\n\r\n 1 \t x  3\r\n5 6 7 8"));
    std::string title;
    float a = 9, b = 9, c = 9, d = 9;
    in.ReadLine(title);
    in.ReadLine(title);
    in.ReadLine(a, b, c, d);
    EXPECT_EQ((std::vector{a, b, c, d}), row.second);
    EXPECT_EQ(ui_.Messages.size(), row.first.size());
    EXPECT_NE(ui_.Messages[0].Text.find(
                  "Error 13 (Type mismatch: \"x\" is not a number) in procedure \"ReadLine; error "
                  "occurred on line 4 of file:\r\n\r\n 1 \t x  3\" of Module \"modCommon\""),
              std::string::npos);
    in.ReadLine(a);  // the reader goes on with its next statement
    EXPECT_EQ(a, 5);
  }
}

TEST_F(Reading, CountsOfAFileAreClaims) {
  ReaderState in(ui_, File("1\n2\n3\n"));
  EXPECT_EQ(in.Plausible(3, 2), 3);
  EXPECT_EQ(ErrorOf([&] { in.Plausible(-1, 2); }), 9);
  EXPECT_EQ(ErrorOf([&] { in.Plausible(2000000000, 2); }), 62);
}

TEST_F(Reading, AnEndlessLineCostsAMomentAndAShortMessage) {
  constexpr std::size_t kSize = 50'000'000;
  std::string numbers(kSize, ' '), text;
  for (std::size_t i = 0; i < kSize; i += 2) numbers[i] = '1';
  float a = 0, b = 0;
  ui_.Answers = {Answer::Abort, Answer::Abort};
  const auto start = std::chrono::steady_clock::now();
  Read(std::string(kSize, 'x'), text, a);
  EXPECT_EQ(text.size(), kSize);
  Read(std::string(kSize, 'x'), a, b);
  EXPECT_EQ(ErrorOf([&] { Read(numbers, a, b); }), 9);
  numbers.replace(80, std::string::npos, kSize, 'x');
  EXPECT_EQ(ErrorOf([&] { Read(numbers, a, b); }), 9);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(ui_.Messages.size(), 3u);
  for (const MessageBox& box : ui_.Messages) EXPECT_LT(box.Text.size(), 5000u);
}

}  // namespace
}  // namespace lomaris

#include "core/text.h"

#include <random>
#include <tuple>

#include <gtest/gtest.h>

#include "core/encoding.h"
#include "core/error_of.h"
#include "core/tables.h"
#include "support/scripted_ui.h"

namespace lomaris {
namespace {

TEST(Text, IsTidiedByEachRule) {
  struct Row {
    std::string Text, Trimmed, Field, Collapsed;
  };
  const Row rows[] = {{" \t ", "\t", "", ""},
                      {"  a b  ", "a b", "a b", "a\tb"},
                      {"1   2\t3", "1   2\t3", "1   23", "1\t2\t3"},
                      {"\t a \t\t b\r\n", "\t a \t\t b\r\n", "a  b", "a\tb\r\n"}};
  for (Row row : rows) {
    EXPECT_EQ(Trim(row.Text), row.Trimmed);
    EXPECT_EQ(TrimField(row.Text), row.Field);
    EXPECT_EQ(CollapseWhitespace(row.Text), row.Collapsed);
  }
  EXPECT_EQ(JoinLines("a\r\nb\rc\nd\r\n"), "a; b; c; d; ");
  EXPECT_EQ(Shown("aéb", 2), "a...");
  EXPECT_EQ(UpperCase("aé×÷ÿßœžñ"), "AÉ×÷ŸßŒŽÑ");
  EXPECT_EQ(LowerCase("AÉ×÷ŸßŒŽÑ"), "aé×÷ÿßœžñ");
  EXPECT_EQ(ProperCase("") + ProperCase("x") + ProperCase("éTÉ 2"), "XÉté 2");
}

TEST(BreakApart, Splits) {
  const std::pair<std::string, std::string> rows[] = {{"", "|"},
                                                      {",,,", "|"},
                                                      {",a,,b,,", "|a||b|"},
                                                      {" a , b , ", " a | b ||"},
                                                      {"\"a,b\"", "\"a|b\"|"},
                                                      {".true.,.True. ", ".true.|1|"},
                                                      {".FALSE.,.false.", ".FALSE.|0|"}};
  for (auto [text, split] : rows) {
    ScriptedUi ui;
    BoundedArray<std::string> fields(-1, 2);
    int count = -1;
    BreakApart(text, fields, count, ',', ui);
    std::string joined;
    for (int i = 0; i < count; ++i) joined += fields[i - 1] + '|';
    EXPECT_EQ(joined, split);
    EXPECT_FALSE(text.ends_with(','));
  }
}

TEST(BreakApart, RefusesMoreFieldsThanTheArrayHolds) {
  ScriptedUi ui;
  for (std::string text : {"1,2,3,4", "1,2,3", "1,2,3,,"}) {
    BoundedArray<std::string> fields(5, 6);
    int count = 7;
    EXPECT_EQ(ErrorOf([&] { BreakApart(text, fields, count, ',', ui); }), 9);
    EXPECT_EQ(count, 0);
  }
  EXPECT_EQ(ui.Messages.size(), 2u);  // none where it is not the last field that is too many
  EXPECT_EQ(ui.LastMessage(),
            "Array bounds exceeded in BreakApart:\r\n\r\nInput string: 1,2,3\r\n"
            "Maximum array size: 6");
}

TEST(BreakApart, ReportsAFieldThatIsNoNumber) {
  const std::tuple<std::string, std::deque<Answer>, std::vector<float>> rows[] = {
      {"1, 2 ,.True.", {}, {1, 2, 1}},
      {"1,x,3", {Answer::Ignore}, {1, 9, 3}},
      {"1,x,3", {Answer::Retry, Answer::Abort}, {1}}};
  for (auto [text, answers, values] : rows) {
    ScriptedUi ui;
    ui.Answers = answers;
    BoundedArray<float> fields(1, 4);
    std::fill(fields.begin(), fields.end(), 9.0F);
    int count = 0;
    BreakApart(text, fields, count, ',', ui);
    EXPECT_EQ(std::vector(fields.begin(), fields.begin() + count), values);
    EXPECT_EQ(ui.Messages.size(), answers.size());
  }
}

TEST(Tables, HoldTheirContractAtEachPosition) {
  ScriptedUi ui;
  const Tables tables = InitTables(ui);
  EXPECT_EQ(tables.ConstituentShort[18] + tables.ConstituentUnits[2], "Depth°C");
  EXPECT_EQ(tables.ConstituentLong[14] + tables.ConstituentLong[18], "Ultimate CBOD 2Water Depth");
  EXPECT_EQ(tables.MetShort[8] + tables.MetUnits[8] + tables.MetLong[8], "Rel Hum%Rel. Humidity");
  EXPECT_EQ(tables.FileFilter[kImportFilter], "Import Specification (*.imp*)|*.imp*|");
}

TEST(Encoding, TellsUtf8FromWindows1252) {
  const std::pair<const char*, const char*> rows[] = {
      {"\xB0\x46 \x80", "°F €"},       {"°F Ω", "°F Ω"},   {"°\xC3", "Â°Ã"},
      {"\xEF\xBB\xBF°F", "°F"},        {"\xC0\x80", "À€"}, {"\xED\xA0\x80", "í\u00A0€"},
      {"\xEF\xBB\xBF plain", " plain"}};
  for (const auto& [bytes, text] : rows) EXPECT_EQ(TextFromFile(bytes), text);
  EXPECT_EQ(TextFromFile("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
  EXPECT_EQ(FileFromText("°F €"), "\xB0\x46 \x80");
  EXPECT_EQ(FileFromText("°F Ω"), "°F Ω");
  EXPECT_EQ(FileFromText("Â°"), "Â°");  // its Windows-1252 bytes would read as "°"
}

TEST(Encoding, AWrittenFileIsReadBackAndWrittenAlike) {
  const std::vector<std::string> pieces = {
      "a", "\r\n", "é",      "Ã",      "©",      "Â",      "°", "ï",      "»",   "¿",
      "€", "Ω",    "\uFEFF", "\uFFFD", "\u0081", "\u0085", "𝄞", "\u009D", "\xFF"};
  std::mt19937 random(11);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (auto length = random() % 8; length > 0; --length) text += pieces[random() % pieces.size()];
    const std::string written = FileFromText(text);
    EXPECT_EQ(FileFromText(TextFromFile(written)), written);
    if (text.find('\xFF') != std::string::npos || text.starts_with("\uFEFF")) continue;
    EXPECT_EQ(TextFromFile(written), text);
  }
}

}  // namespace
}  // namespace lomaris

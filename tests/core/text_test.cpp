#include "core/text.h"

#include <random>

#include <gtest/gtest.h>

#include "core/encoding.h"
#include "core/error_of.h"
#include "core/tables.h"
#include "support/scripted_ui.h"

namespace lomaris {
namespace {

TEST(Text, IsTidiedByEachRule) {
  struct Row {
    const char *Text, *Trimmed, *Field, *Collapsed;
  };
  const Row rows[] = {{" \t ", "\t", "", ""},
                      {"  a b  ", "a b", "a b", "a\tb"},
                      {"1   2\t3", "1   2\t3", "1   23", "1\t2\t3"},
                      {"\t a \t\t b\r\n", "\t a \t\t b\r\n", "a  b", "a\tb\r\n"}};
  for (const Row& row : rows) {
    EXPECT_EQ(Trim(row.Text), row.Trimmed);
    EXPECT_EQ(TrimField(row.Text), row.Field);
    std::string text = row.Text;
    EXPECT_EQ(CollapseWhitespace(text), row.Collapsed);
    EXPECT_EQ(text, row.Collapsed);
  }
  EXPECT_EQ(JoinLines("a\r\nb\rc\nd\r\n"), "a; b; c; d; ");
  EXPECT_EQ(Shown("aéb", 2), "a...");
}

TEST(Text, KnowsTheCaseOfAccentedLetters) {
  EXPECT_EQ(UpperCase("aé×÷ÿßœžñ"), "AÉ×÷ŸßŒŽÑ");
  EXPECT_EQ(LowerCase("AÉ×÷ŸßŒŽÑ"), "aé×÷ÿßœžñ");
  EXPECT_FALSE(EqualIgnoringCase("a", "ab"));
  EXPECT_EQ(ProperCase("") + ProperCase("x") + ProperCase("éTÉ 2"), "XÉté 2");
}

TEST(BreakApart, Splits) {
  struct Row {
    std::string Text;
    std::vector<std::string> Fields;
    std::string TextAfter;
  };
  const Row rows[] = {{"", {""}, ""},
                      {",,,", {""}, ""},
                      {"a,,", {"a"}, "a"},
                      {",a,,b", {"", "a", "", "b"}, ",a,,b"},
                      {" a , b , c , ", {" a ", " b ", " c ", ""}, " a , b , c , "},
                      {"\"a,b\",c", {"\"a", "b\"", "c"}, "\"a,b\",c"},
                      {".true.,.True. ", {".true.", "1"}, ".true.,.True. "},
                      {".FALSE.,.false.,,", {".FALSE.", "0"}, ".FALSE.,.false."}};
  for (Row row : rows) {
    ScriptedUi ui;
    BoundedArray<std::string> fields(-1, 4);
    fields[4] = "as it was";
    int count = -1;
    BreakApart(row.Text, fields, count, ',', ui);
    EXPECT_EQ(std::vector(fields.begin(), fields.begin() + count), row.Fields);
    EXPECT_EQ(row.Text, row.TextAfter);
    EXPECT_EQ(fields[4], "as it was");
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
  struct Row {
    std::string Text;
    std::deque<Answer> Answers;
    int Count;
    std::vector<float> Fields;
  };
  const Row rows[] = {{"1, 2 ,.True.", {}, 3, {1, 2, 1, 9}},
                      {"1,x,3", {Answer::Ignore}, 3, {1, 9, 3, 9}},
                      {"1,x,3", {Answer::Retry, Answer::Abort}, 1, {1, 9, 9, 9}},
                      {"1,,x", {Answer::Ignore, Answer::Ignore}, 3, {1, 9, 9, 9}}};
  ScriptedUi ui;
  int count = 0;
  for (Row row : rows) {
    ui.Messages.clear();
    ui.Answers = row.Answers;
    BoundedArray<float> fields(1, 4);
    std::fill(fields.begin(), fields.end(), 9.0F);
    BreakApart(row.Text, fields, count, ',', ui);
    EXPECT_EQ(count, row.Count);
    EXPECT_EQ(std::vector(fields.begin(), fields.end()), row.Fields);
    EXPECT_EQ(ui.Messages.size(), row.Answers.size());
  }
  EXPECT_NE(ui.LastMessage().find("in procedure \"BreakApart\" of Module \"modCommon\""),
            std::string::npos);
  BoundedArray<bool> flags(0, 3);
  std::string text = "1,0,-2,.FALSE.";
  BreakApart(text, flags, count, ',', ui);
  EXPECT_EQ(std::vector(flags.begin(), flags.end()), (std::vector<bool>{true, false, true, false}));
}

TEST(Tables, HoldTheirContractAtEachPosition) {
  ScriptedUi ui;
  const Tables tables = InitTables(ui);
  EXPECT_TRUE(ui.Messages.empty());
  EXPECT_EQ(tables.ConstituentShort[18] + tables.ConstituentUnits[18], "Depthft");
  EXPECT_EQ(tables.ConstituentUnits[2] + tables.ConstituentUnits[16], "°C");
  EXPECT_EQ(tables.ConstituentLong[14] + tables.ConstituentLong[18], "Ultimate CBOD 2Water Depth");
  EXPECT_EQ(tables.MetShort[8] + tables.MetUnits[8] + tables.MetLong[8], "Rel Hum%Rel. Humidity");
  EXPECT_EQ(tables.FileFilter[kImportFilter], "Import Specification (*.imp*)|*.imp*|");
  EXPECT_EQ(TypeKey("C:\\a\\river.hNp") + TypeKey("ab"), "HNPAB");
}

TEST(Encoding, TellsUtf8FromWindows1252) {
  const std::pair<const char*, const char*> rows[] = {
      {"\xB0\x46 \x80", "°F €"},       {"°F Ω", "°F Ω"},   {"°\xC3", "Â°Ã"},
      {"\xEF\xBB\xBF°F", "°F"},        {"\xC0\x80", "À€"}, {"\xED\xA0\x80", "í\u00A0€"},
      {"\xEF\xBB\xBF plain", " plain"}};
  for (const auto& row : rows) EXPECT_EQ(TextFromFile(row.first), row.second);
  EXPECT_EQ(TextFromFile("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
  EXPECT_EQ(FileFromText("°F €"), "\xB0\x46 \x80");
  EXPECT_EQ(FileFromText("°F Ω"), "°F Ω");
  EXPECT_EQ(FileFromText("Â°"), "Â°");  // its Windows-1252 bytes would read as "°"
}

TEST(Encoding, AWrittenFileIsReadBackAndWrittenAlike) {
  const std::vector<std::string> pieces = {"a",      "\r\n",   "é",      "Ã",      "©",   "Â",
                                           "°",      "ï",      "»",      "¿",      "€",   "Ω",
                                           "\uFEFF", "\uFFFD", "\u0081", "\u0085", "𝄞",   "â",
                                           "\u008D", "\u008F", "\u0090", "\u009D", "\xFF"};
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

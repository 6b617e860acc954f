// Texts, numbers and dates, and what files make of them.

#include <array>
#include <bit>
#include <cmath>
#include <random>
#include <tuple>

#include <gtest/gtest.h>

#include "core/dates.h"
#include "core/encoding.h"
#include "core/error_of.h"
#include "core/numbers.h"
#include "core/text.h"
#include "core/validated.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

TEST(Text, IsTidiedByEachRule) {
  const std::array<std::string, 4> rows[] = {
      // as it is, trimmed, as a field, collapsed
      {" \t ", "\t", "", ""},
      {"1   2\t3", "1   2\t3", "1   23", "1\t2\t3"},
      {"\t a \t\t b\r\n", "\t a \t\t b\r\n", "a  b", "a\tb\r\n"}};
  for (auto [text, trimmed, field, collapsed] : rows) {
    EXPECT_EQ(Trim(text), trimmed);
    EXPECT_EQ(TrimField(text), field);
    EXPECT_EQ(CollapseWhitespace(text), collapsed);
  }
  EXPECT_EQ(JoinLines("a\r\nb\rc\nd\r\n"), "a; b; c; d; ");
  EXPECT_EQ(Shown("aéb", 2), "a...");
  EXPECT_EQ(UpperCase("aé×÷ÿßœžñ"), "AÉ×÷ŸßŒŽÑ");
  EXPECT_EQ(LowerCase("AÉ×÷ŸßŒŽÑ"), "aé×÷ÿßœžñ");
  EXPECT_EQ(ProperCase("") + ProperCase("x") + ProperCase("éTÉ 2"), "XÉté 2");
}

TEST(BreakApart, SplitsAsOftenAsTheArrayHolds) {
  ScriptedUi ui;
  BoundedArray<std::string> fields(-1, 2);
  int count = -1;
  std::string all;
  for (std::string text :
       {",,,", ",a,,b,,", " a , b , ", "\"a,b\"", ".true.,.True. ", ".FALSE.,.false."}) {
    BreakApart(text, fields, count, ',', ui);
    for (int i = 0; i < count; ++i) all += '[' + fields[i - 1] + ']';
    all += ' ';
  }
  EXPECT_EQ(all, "[] [][a][][b] [ a ][ b ][] [\"a][b\"] [.true.][1] [.FALSE.][0] ");
  std::string text = "1,2,3,4,5,";
  EXPECT_EQ(ErrorOf([&] { BreakApart(text, fields, count, ',', ui); }), 9);
  EXPECT_TRUE(ui.LastMessage().ends_with("1,2,3,4,5\r\nMaximum array size: 2"));
  EXPECT_EQ(count, 0);
}

TEST(Encoding, TellsUtf8FromWindows1252) {
  const std::pair<const char*, const char*> rows[] = {
      {"\xB0\x46 \x80", "°F €"},       {"°F Ω", "°F Ω"},   {"°\xC3", "Â°Ã"},
      {"\xEF\xBB\xBF°F", "°F"},        {"\xC0\x80", "À€"}, {"\xED\xA0\x80", "í\u00A0€"},
      {"\xEF\xBB\xBF plain", " plain"}};
  for (const auto& [bytes, text] : rows) EXPECT_EQ(TextFromFile(bytes), text);
  EXPECT_EQ(TextFromFile("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
  EXPECT_EQ(FileFromText("°F €"), "\xB0\x46 \x80");
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

const std::string kZeros(400, '0');

/// What each text is converted to: a number, or an error in brackets.
template <class Convert>
std::string Converted(Convert convert, std::initializer_list<std::string> texts) {
  std::string all;
  for (const std::string& text : texts) {
    const int error = ErrorOf([&] { all += NumberText(convert(text)) + ' '; });
    if (error != 0) all += '[' + std::to_string(error) + "] ";
  }
  return all;
}

TEST(Numbers, AreReadStrictly) {
  EXPECT_EQ(Converted(ToDouble, {"12", " 12 ", "-1.5E2", "+.5", "7.", "1D-3", "2.5d+2", "0E999",
                                 "-1E-99999999999", "-1E999999999999", "0." + kZeros + "1E2",
                                 "1" + kZeros + "E-400", "1" + kZeros + "E-10"}),
            "12 12 -150 0.5 7 0.001 250 0 0 [6] 0 1 [6] ");
  EXPECT_EQ(Converted(ToDouble, {std::string("1\0", 2)}), "[13] ");
  for (const char* text : {"", "  ", ".", "-", "+-1", "- 1", "1 2", "\t1", "1E", "1E+", "1DE2",
                           "1E2D3", "E5", "1,000", "1.2.3", "0x10", "inf", "-nan", "12a"}) {
    EXPECT_EQ(Converted(ToDouble, {text}) + Converted(ToLong, {text}), "[13] [13] ") << text;
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
  EXPECT_TRUE(IsNumeric(" -1.5D2 "));
}

TEST(Numbers, KeepToTheRangeOfTheirType) {
  EXPECT_EQ(Converted(ToSingle, {"3.4028235E38", "-3.5E38", "1E-60"}), "3.402823E+38 [6] 0 ");
  EXPECT_EQ(Converted(ToInteger, {"0.5", "1.5", "2.5", "-2.5", "3E2", "+7", "32767.4", "32767.5",
                                  "-32768.5", "4E4"}),
            "0 2 2 -2 300 7 32767 [6] -32768 [6] ");
  EXPECT_EQ(Converted(ToLong, {"4E4", "2147483647", "2147483647.5"}), "40000 2147483647 [6] ");
}

TEST(Numbers, AreTakenByNumericValue) {
  EXPECT_EQ(Converted(NumericValue, {"", "abc", "12 cfs", " \t-3.5E1x", "1E", "1D2D3", ".5.5",
                                     "--1", "1,000", "0x10", "1E-999x", "1E999x"}),
            "0 0 12 -35 1 100 0.5 0 1 0 0 [6] ");
}

TEST(Numbers, AreWrittenInTheFewestDigits) {
  std::string text = PrintedNumber(12) + PrintedNumber(-3);
  for (const float value : {-0.0F, 0.1F, -1.5F, 100.0F, 0.0001F, 0.00001F, -1.25E-5F, 1234567.0F,
                            12345678.0F, 1E7F, 1.0F / 3, 16777.217F, 3.4028235E38F, 1E-45F}) {
    AppendNumber(text += ' ', value);
  }
  for (const double value : {2.0 / 3, 0.1 + 0.2, 123456789012345.0, 1234567890123456.0}) {
    AppendNumber(text += ' ', value);
  }
  for (const float value : {0.5F, -0.001F, -1.005F, 12.0F}) AppendTwoDecimals(text += ' ', value);
  EXPECT_EQ(text,
            " 12 -3  0 0.1 -1.5 100 0.0001 1E-05 -1.25E-05 1234567 1.234568E+07 1E+07 0.3333333 "
            "16777.22 3.402823E+38 1E-45 0.666666666666667 0.3 123456789012345 "
            "1.23456789012346E+15 0.50 0.00 -1.00 12.00");
  EXPECT_EQ(ErrorOf([&] { AppendNumber(text, INFINITY); }), 6);
  EXPECT_EQ(ErrorOf([&] { AppendTwoDecimals(text, NAN); }), 6);
}

TEST(Numbers, ReadAndWrittenAgainAreTheSameText) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (!std::isfinite(value)) continue;
    const std::string text = NumberText(value);
    EXPECT_EQ(NumberText(ToSingle(text)), text);
    EXPECT_NEAR(ToDouble(text), value, std::abs(value) * 5.1e-7 + 1e-45);
  }
}

TEST(Dates, AreParsed) {
  std::string serials;
  for (const char* text : {"1/1/2000 18:00", " 01/01/2000  6:00pm ", "1/1/00 06:00:54 PM",
                           "2000-01-01T18:00", "2000-01-01", "2/29/2000", "1/1/29", "1/1/30",
                           "12/30/1899", "12:00 am", "12/29/1899 18:00"}) {
    serials += NumberText(ParseDate(text).value_or(1e9)) + ' ';
  }
  EXPECT_EQ(serials, "36526.75 36526.75 36526.750625 36526.75 36526 36585 47119 10959 0 0 -0.25 ");
  for (const char* text :
       {"", "2/29/1900", "13/1/2000", "1/32/2000", "0/1/2000", "-1/1/2000", "1/1/99999", "1/1",
        "1/1/2000 24:00", "1/1/2000 10:60", "1/1/2000 13:00 PM", "1/1/2000 10", "1/1/2000x",
        "1/1/2000T18:00", "00-01-01", "2000-01-01 -1:00", "36526"}) {
    EXPECT_FALSE(ParseDate(text)) << text;
  }
}

TEST(Dates, AreFormatted) {
  EXPECT_EQ(FormatDate(36526.5, "mm/dd/yyyy Hh:Nn"), "01/01/2000 12:00");
  EXPECT_EQ(FormatDate(36526.999999, "mm/dd/yy hh:mm"), "01/02/00 00:00");
  EXPECT_EQ(FormatDate(0.5625 - 10.0 / 86400, "hh:mm"), "13:29");
  EXPECT_EQ(FormatDate(-0.25, "yyyy-mm-dd hh:nn"), "1899-12-29 18:00");
  for (const double bad : {2958465.9999999, -657434.1, 1e300, std::nan("")}) {
    EXPECT_EQ(ErrorOf([&] { FormatDate(bad, "mm/dd/yyyy"); }), 6) << bad;
  }
}

TEST(Dates, AreComposedOfTheFieldsOfAFile) {
  constexpr double kAsItWas = -1e9;
  const std::string noDate = "Unable to interpret date passed to ConvertDateTime routine: ";
  const std::tuple<std::int16_t, std::int16_t, std::int16_t, float, double, std::string> rows[] = {
      {2000, 1, 1, 13.5F, 36526.5625, ""},
      {1999, 12, 31, 24.0F, 36526, ""},
      {2000, 1, 1, 0.025F, 36526 + 2.0 / 1440, ""},  // 1.5 minutes: to the even one
      {2000, 1, 1, 25.5F, 36526,
       "Invalid hour in date: 25.5. Value must range from 00:00 to 23:59\r\n\r\n"
       "The hour has been reset to 00:00."},
      {2000, 1, 1, 23.9999F, kAsItWas, noDate + "1/1/2000 23:60"},
      {2000, 1, 1, -1.0F, kAsItWas, noDate + "1/1/2000 -1:00"},
      {2000, 2, 30, 7.0F, kAsItWas, noDate + "2/30/2000 07:00"},
      {31, 5, 1, 0.0F, kAsItWas, noDate + "5/1/31 00:00"}};
  for (auto [year, month, day, hour, serial, told] : rows) {
    ScriptedUi ui;
    ModelDateTime date = kAsItWas;
    ConvertDateTime(year, month, day, hour, date, false, ui);
    EXPECT_DOUBLE_EQ(date, serial);
    EXPECT_EQ(ui.LastMessage(), told);
  }
}

TEST(Dates, EveryMinuteSurvivesTheFile) {
  ScriptedUi ui;
  std::int16_t year = 0, month = 0, day = 0;
  float hour = 0;
  for (int minute = 0; minute < 1440; ++minute) {
    ModelDateTime date = 45350 + minute / 1440.0, again = 0;
    ConvertDateTime(year, month, day, hour, date, true, ui);
    hour = ToSingle(NumberText(hour));
    ConvertDateTime(year, month, day, hour, again, false, ui);
    EXPECT_NEAR(again, date, 1e-9) << hour;
  }
}

TEST(Validated, ChecksAndRewritesAField) {
  using enum FieldKind;
  const TempFolder folder;
  folder.Write("proj/Flow.lat", "");
  ScriptedUi ui;
  ui.Answers = {Answer::Yes, Answer::No};
  const auto validated = [&](std::string text, FieldKind kind) {
    return Validated(text, kind, ui, "proj/river.prj") ? text : "refused";
  };
  EXPECT_EQ(validated("5/1/2031", Date), "05/01/31");
  EXPECT_EQ(validated("2000-05-01 6:07", DateTime), "05/01/00 06:07");
  EXPECT_EQ(validated("6:07 pm", Time), "18:07");
  EXPECT_EQ(validated("31/1/00", Date), "refused");
  for (const char* name : {"  ", "flow.LAT", "new.lat"}) EXPECT_EQ(validated(name, File), name);
  EXPECT_EQ(validated("new.lat", File), "refused");
  EXPECT_EQ(ui.Messages[0].Text, "Invalid date/time entered: 31/1/00");
  EXPECT_EQ(ui.LastMessage(),
            "The file you specified (new.lat) does not exist; do you want to create it?\r\n\r\n"
            "If you select 'No', you can respecify the file.");
}

}  // namespace
}  // namespace lomaris

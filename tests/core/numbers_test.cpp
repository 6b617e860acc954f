#include "core/numbers.h"

#include <bit>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "core/error_of.h"

namespace lomaris {
namespace {

using namespace std::string_literals;

const std::string kZeros(400, '0');

TEST(Numbers, AreReadStrictly) {
  std::string read;
  for (const std::string& text :
       {"12"s, " 12 "s, "-1.5E2"s, "+.5"s, "7."s, "1D-3"s, "2.5d+2"s, "0E999"s, "1E-999"s,
        "-1E-99999999999"s, "1" + kZeros + "E-400", "0." + kZeros + "1E2"}) {
    read += NumberText(ToDouble(text)) + ' ';
  }
  EXPECT_EQ(read, "12 12 -150 0.5 7 0.001 250 0 0 0 1 0 ");
  const auto refused = [](const std::string& text) {
    EXPECT_FALSE(IsNumeric(text)) << text;
    return ErrorOf([&] { ToDouble(text); });
  };
  for (const std::string text :
       {"", "  ", ".", "-", "+-1", "- 1", "1 2", "\t1", "1E", "1E+", "1DE2", "1E2D3", "E5", "1,000",
        "1.2.3", "0x10", "inf", "-nan", "12a"}) {
    EXPECT_EQ(refused(text), 13) << text;
    EXPECT_EQ(ErrorOf([&] { ToLong(text); }), 13) << text;
  }
  EXPECT_EQ(refused("1\0"s), 13);
  EXPECT_EQ(refused("1" + kZeros + "E-10"), 6);
  EXPECT_EQ(refused("-1E999999999999"), 6);
}

TEST(Numbers, KeepToTheRangeOfTheirType) {
  EXPECT_EQ(ToSingle("3.4028235E38"), 3.4028235E38F);
  EXPECT_EQ(ErrorOf([] { ToSingle("-3.5E38"); }), 6);
  EXPECT_EQ(ToSingle("1E-60"), 0);

  const auto outcome = [](auto convert, const char* text) {
    std::string shown;
    const int error = ErrorOf([&] { shown = NumberText(convert(text)); });
    return (error == 0 ? shown : "error" + std::to_string(error)) + ' ';
  };
  std::string shorts, longs;
  for (const char* text : {"0.5", "1.5", "2.5", "-2.5", "3E2", "+7", "32767.4", "32767.5",
                           "-32768.5", "4E4", "2147483647", "2147483647.5"}) {
    shorts += outcome(ToInteger, text);
    longs += outcome(ToLong, text);
  }
  EXPECT_EQ(shorts, "0 2 2 -2 300 7 32767 error6 -32768 error6 error6 error6 ");
  EXPECT_EQ(longs, "0 2 2 -2 300 7 32767 32768 -32768 40000 2147483647 error6 ");
}

TEST(Numbers, AreTakenByNumericValue) {
  std::string taken;
  for (const char* text : {"", "abc", "12 cfs", " \t-3.5E1x", "1E", "1D2D3", ".5.5", "--1", "1,000",
                           "0x10", "1E-999x"}) {
    taken += NumberText(NumericValue(text)) + ' ';
  }
  EXPECT_EQ(taken, "0 0 12 -35 1 100 0.5 0 1 0 0 ");
  EXPECT_EQ(ErrorOf([] { NumericValue("1E999x"); }), 6);
}

TEST(Numbers, AreWrittenInTheFewestDigits) {
  std::string text = PrintedNumber(12);
  for (const float value : {-0.0F, 0.1F, -1.5F, 100.0F, 0.0001F, 0.00001F, -1.25E-5F, 1234567.0F,
                            12345678.0F, 1E7F, 1.0F / 3, 16777.217F, 3.4028235E38F, 1E-45F}) {
    AppendNumber(text += ' ', value);
  }
  EXPECT_EQ(text,
            " 12  0 0.1 -1.5 100 0.0001 1E-05 -1.25E-05 1234567 1.234568E+07 1E+07 0.3333333 "
            "16777.22 3.402823E+38 1E-45");
  text.clear();
  for (const double value : {2.0 / 3, 0.1 + 0.2, 123456789012345.0, 1234567890123456.0}) {
    AppendNumber(text += ' ', value);
  }
  for (const float value : {0.5F, -0.001F, -1.005F, 12.0F}) AppendTwoDecimals(text += ' ', value);
  EXPECT_EQ(text,
            " 0.666666666666667 0.3 123456789012345 1.23456789012346E+15 0.50 0.00 -1.00 12.00");
  for (const float bad : {INFINITY, NAN}) {
    EXPECT_EQ(ErrorOf([&] { AppendNumber(text, bad); }), 6);
    EXPECT_EQ(ErrorOf([&] { AppendTwoDecimals(text, bad); }), 6);
  }
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

}  // namespace
}  // namespace lomaris

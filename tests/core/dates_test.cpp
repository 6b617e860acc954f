#include "core/dates.h"

#include <cmath>
#include <tuple>

#include <gtest/gtest.h>

#include "core/error_of.h"
#include "core/numbers.h"
#include "core/validated.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

constexpr double kNoDate = -1e9;

TEST(Dates, AreParsed) {
  std::string serials;
  for (const char* text : {"1/1/2000 18:00", " 01/01/2000  6:00pm ", "1/1/00 06:00:00 PM",
                           "2000-01-01T18:00", "2000-1-1 18:00:54", "2000-01-01", "2/29/2000",
                           "1/1/29", "1/1/30", "12/30/1899", "12:00 am", "12/29/1899 18:00"}) {
    serials += NumberText(ParseDate(text).value_or(kNoDate)) + ' ';
  }
  EXPECT_EQ(serials,
            "36526.75 36526.75 36526.75 36526.75 36526.750625 36526 36585 47119 10959 0 0 -0.25 ");
  for (const char* text :
       {"", "2/29/1900", "13/1/2000", "1/32/2000", "0/1/2000", "-1/1/2000", "1/1/99999", "1/1",
        "1/1/2000 24:00", "1/1/2000 10:60", "1/1/2000 13:00 PM", "1/1/2000 10", "1/1/2000x",
        "00-01-01", "2000-01-01 -1:00", "36526"}) {
    EXPECT_FALSE(ParseDate(text)) << text;
  }
}

TEST(Dates, AreFormatted) {
  const std::tuple<double, const char*, const char*> rows[] = {
      {36526.5, "mm/dd/yyyy Hh:Nn", "01/01/2000 12:00"},
      {36526.999999, "mm/dd/yy hh:mm", "01/02/00 00:00"},
      {0.5625 - 10.0 / 86400, "hh:mm", "13:29"},
      {-0.25, "yyyy-mm-dd hh:nn", "1899-12-29 18:00"}};
  for (const auto& [serial, mask, text] : rows) EXPECT_EQ(FormatDate(serial, mask), text);
  for (const double bad : {2958465.9999999, -657434.1, 1e300, std::nan("")}) {
    EXPECT_EQ(ErrorOf([&] { FormatDate(bad, "mm/dd/yyyy"); }), 6) << bad;
  }
}

TEST(Dates, AreComposedOfTheFieldsOfAFile) {
  const std::string noDate = "Unable to interpret date passed to ConvertDateTime routine: ";
  struct Row {
    std::int16_t Year, Month, Day;
    float Hour;
    double Serial;  ///< kNoDate: stays as it was
    std::string Told = {};
  };
  const Row rows[] = {{2000, 1, 1, 13.5F, 36526.5625},
                      {1999, 12, 31, 24, 36526},
                      {2000, 1, 1, 0.025F, 36526 + 2.0 / 1440},  // 1.5 minutes: to the even one
                      {2000, 1, 1, 25.5F, 36526,
                       "Invalid hour in date: 25.5. Value must range from 00:00 to 23:59\r\n\r\n"
                       "The hour has been reset to 00:00."},
                      {2000, 1, 1, 23.9999F, kNoDate, noDate + "1/1/2000 23:60"},
                      {2000, 1, 1, -1, kNoDate, noDate + "1/1/2000 -1:00"},
                      {2000, 1, 1, NAN, kNoDate, noDate + "1/1/2000 -99:-99"},
                      {2000, 2, 30, 7, kNoDate, noDate + "2/30/2000 07:00"},
                      {31, 5, 1, 0, kNoDate, noDate + "5/1/31 00:00"},
                      {32767, -1, 1, 0, kNoDate, noDate + "-1/1/32767 00:00"}};
  for (Row row : rows) {
    ScriptedUi ui;
    ModelDateTime date = kNoDate;
    ConvertDateTime(row.Year, row.Month, row.Day, row.Hour, date, false, ui);
    EXPECT_DOUBLE_EQ(date, row.Serial);
    EXPECT_EQ(ui.LastMessage(), row.Told);
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
  const TempFolder folder;
  folder.Write("proj/Flow.lat", "");
  ScriptedUi ui;
  const auto validated = [&](std::string text, int kind) {
    return Validated(text, FieldKind{kind}, ui, "proj/river.prj") ? text : "refused " + text;
  };
  EXPECT_EQ(validated("5/1/2031", 0), "05/01/31");
  EXPECT_EQ(validated("2000-05-01 6:07", 1), "05/01/00 06:07");
  EXPECT_EQ(validated("6:07 pm", 2), "18:07");
  for (const char* file : {"  ", "(Not Specified)", "flow.LAT"})
    EXPECT_EQ(validated(file, 3), file);
  EXPECT_TRUE(ui.Messages.empty());

  EXPECT_EQ(validated("31/1/00", 0), "refused 31/1/00");
  EXPECT_EQ(ui.LastMessage(), "Invalid date/time entered: 31/1/00");
  EXPECT_EQ(ui.Beeps, 1);
  ui.Answers = {Answer::Yes, Answer::No};
  EXPECT_EQ(validated("new.lat", 3) + ", " + validated("new.lat", 3), "new.lat, refused new.lat");
  EXPECT_EQ(ui.LastMessage(),
            "The file you specified (new.lat) does not exist; do you want to create it?\r\n\r\n"
            "If you select 'No', you can respecify the file.");
}

}  // namespace
}  // namespace lomaris

#include "core/dates.h"

#include <cmath>

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
  for (const char* text : {"1/1/2000 18:00", " 01/01/2000  6:00pm ", "1/1/00 06:00:00 PM",
                           "2000-01-01T18:00", "2000-1-1 18:00:00"}) {
    EXPECT_EQ(ParseDate(text), 36526.75) << text;
  }
  const std::pair<const char*, double> dates[] = {
      {"12/30/1899", 0},     {"1/1/29", 47119}, {"1/1/30", 10959},          {"2/29/2000", 36585},
      {"2000-01-01", 36526}, {"12:00 am", 0},   {"12/29/1899 18:00", -0.25}};
  for (const auto& row : dates) EXPECT_EQ(ParseDate(row.first), row.second) << row.first;
  for (const char* text :
       {"", "2/29/1900", "13/1/2000", "1/32/2000", "0/1/2000", "-1/1/2000", "1/1/99999", "1/1",
        "1/1/2000 24:00", "1/1/2000 10:60", "1/1/2000 13:00 PM", "1/1/2000 10", "1/1/2000x",
        "00-01-01", "2000-01-01 -1:00", "36526"}) {
    EXPECT_FALSE(ParseDate(text)) << text;
  }
}

TEST(Dates, AreFormatted) {
  struct Row {
    double Serial;
    const char *Mask, *Text;
  };
  const Row rows[] = {{36526.5, "mm/dd/yyyy Hh:Nn", "01/01/2000 12:00"},
                      {36526.999999, "mm/dd/yy hh:mm", "01/02/00 00:00"},
                      {0.5625 - 10.0 / 86400, "hh:mm", "13:29"},
                      {-0.25, "yyyy-mm-dd hh:nn", "1899-12-29 18:00"},
                      {2958465.9, "mm/dd/yyyy", "12/31/9999"}};
  for (const Row& row : rows) EXPECT_EQ(FormatDate(row.Serial, row.Mask), row.Text);
  for (const double bad : {2958465.9999999, -657434.1, 1e300, -1e300, std::nan("")}) {
    EXPECT_EQ(ErrorOf([&] { FormatDate(bad, "mm/dd/yyyy"); }), 6) << bad;
  }
}

TEST(Dates, AreComposedOfTheFieldsOfAFile) {
  struct Row {
    std::int16_t Year, Month, Day;
    float Hour;
    double Serial;       ///< kNoDate: stays as it was
    const char* Told{};  ///< the text that is no date
  };
  const Row rows[] = {{2000, 1, 1, 13.5F, 36526.5625},
                      {1999, 12, 31, 24, 36526},
                      {2000, 1, 1, 0.025F, 36526 + 2.0 / 1440},  // 1.5 minutes: to the even one
                      {2000, 1, 1, 23.9999F, kNoDate, "1/1/2000 23:60"},
                      {2000, 1, 1, -1, kNoDate, "1/1/2000 -1:00"},
                      {2000, 1, 1, NAN, kNoDate, "1/1/2000 -99:-99"},
                      {2000, 13, 5, 0, kNoDate, "13/5/2000 00:00"},
                      {2000, 2, 30, 7, kNoDate, "2/30/2000 07:00"},
                      {31, 5, 1, 0, kNoDate, "5/1/31 00:00"},
                      {-1, -1, -1, 0, kNoDate, "-1/-1/-1 00:00"},
                      {32767, 1, 1, 0, kNoDate, "1/1/32767 00:00"}};
  ScriptedUi ui;
  ModelDateTime date = kNoDate;
  for (Row row : rows) {
    date = kNoDate;
    ui.Messages.assign(1, {});
    ConvertDateTime(row.Year, row.Month, row.Day, row.Hour, date, false, ui);
    EXPECT_DOUBLE_EQ(date, row.Serial);
    const std::string start = "ErrorUnable to interpret date passed to ConvertDateTime routine: ";
    EXPECT_EQ(ui.Messages.back().Title + ui.LastMessage(), row.Told ? start + row.Told : "");
  }
  Row late = {2000, 1, 1, 25.5F, 36526};
  ConvertDateTime(late.Year, late.Month, late.Day, late.Hour, date, false, ui);
  EXPECT_EQ(ui.LastMessage(),
            "Invalid hour in date: 25.5. Value must range from 00:00 to 23:59\r\n\r\n"
            "The hour has been reset to 00:00.");
  EXPECT_EQ(ui.Messages.back().Title, "Error");
  EXPECT_EQ(date, late.Serial);
  EXPECT_EQ(late.Hour, 0);
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
  EXPECT_EQ(NumberText(hour), "23.98333");

  ui.Answers = {Answer::Ignore};
  ModelDateTime noDate = 1e7;
  ConvertDateTime(year, month, day, hour, noDate, true, ui);
  EXPECT_NE(ui.LastMessage().find("in procedure \"ConvertDateTime\" of Module \"modCommon\""),
            std::string::npos);
  EXPECT_EQ(year, 2024);
}

TEST(Validated, ChecksAndRewritesAField) {
  TempFolder folder;
  folder.Write("proj/Flow.lat", "");
  struct Row {
    std::string Text;
    int Kind;
    bool Valid;
    std::string After, Message = {};
  };
  const auto missing = [](const std::string& name) {
    return "Warning: The file you specified (" + name +
           ") does not exist; do you want to create "
           "it?\r\n\r\nIf you select 'No', you can respecify the file.";
  };
  const Row rows[] = {{"5/1/2031", 0, true, "05/01/31"},
                      {"2000-05-01 6:07", 1, true, "05/01/00 06:07"},
                      {"6:07 pm", 2, true, "18:07"},
                      {"31/1/00", 0, false, "31/1/00", "Error: Invalid date/time entered: 31/1/00"},
                      {"", 1, false, "", "Error: Invalid date/time entered: "},
                      {"  ", 3, true, "  "},
                      {"(Not Specified)", 3, true, "(Not Specified)"},
                      {"flow.LAT", 3, true, "flow.LAT"},
                      {"new.lat", 3, true, "new.lat", missing("new.lat")},
                      {"no.lat", 3, false, "no.lat", missing("no.lat")},
                      {"5/1/00", 4, false, "5/1/00"}};
  for (Row row : rows) {
    ScriptedUi ui;
    ui.Answers = {row.Valid ? Answer::Yes : Answer::No};
    EXPECT_EQ(Validated(row.Text, static_cast<FieldKind>(row.Kind), ui, "proj/river.prj"),
              row.Valid);
    EXPECT_EQ(row.Text, row.After);
    EXPECT_EQ(ui.Beeps, row.Message.starts_with("Error") ? 1 : 0);
    EXPECT_EQ(ui.Messages.empty(), row.Message.empty());
    for (const MessageBox& box : ui.Messages) {
      EXPECT_EQ(box.Title + ": " + box.Text, row.Message);
      EXPECT_EQ(box.DefaultAnswer == Answer::No, row.Kind == 3);
    }
  }
}

}  // namespace
}  // namespace lomaris

#include "core/dates.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <ctime>

#include <fmt/format.h>

#include "core/error_report.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lomaris {
namespace {

constexpr std::chrono::sys_days kDayZero =
    std::chrono::year(1899) / std::chrono::December / std::chrono::day(30);
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr std::int64_t kSecondsPerDay = 86400;

/// Reads a date text from its start; each step says whether it found what it looks for.
class DateCursor {
 public:
  explicit DateCursor(std::string_view text) : rest_(Trim(text)) {}

  bool AtEnd() const { return rest_.empty(); }

  bool Number(int& value, std::size_t maxDigits, std::size_t* digits = nullptr) {
    const std::string_view head = rest_.substr(0, maxDigits);
    const auto [end, error] = std::from_chars(head.data(), head.data() + head.size(), value);
    if (error != std::errc() || head.front() == '-') return false;
    const auto length = static_cast<std::size_t>(end - head.data());
    if (digits != nullptr) *digits = length;
    rest_.remove_prefix(length);
    return true;
  }

  bool Symbol(char symbol) {
    if (rest_.empty() || rest_.front() != symbol) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool Blanks() {
    const bool found = !rest_.empty() && rest_.front() == ' ';
    while (Symbol(' ')) {
    }
    return found;
  }

  bool Word(std::string_view word) {
    if (!EqualIgnoringCase(rest_.substr(0, word.size()), word)) return false;
    rest_.remove_prefix(word.size());
    return true;
  }

  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

int FullYear(int year, std::size_t digits) {
  if (digits > 2) return year;
  return year + (year < 30 ? 2000 : 1900);
}

std::optional<ModelDateTime> SlashDate(DateCursor& in) {
  int month = 0, day = 0, year = 0;
  std::size_t digits = 0;
  if (!in.Number(month, 2) || !in.Symbol('/') || !in.Number(day, 2) || !in.Symbol('/') ||
      !in.Number(year, 4, &digits)) {
    return std::nullopt;
  }
  return DateSerial(FullYear(year, digits), month, day);
}

std::optional<ModelDateTime> IsoDate(DateCursor& in) {
  int month = 0, day = 0, year = 0;
  std::size_t digits = 0;
  if (!in.Number(year, 4, &digits) || digits != 4 || !in.Symbol('-') || !in.Number(month, 2) ||
      !in.Symbol('-') || !in.Number(day, 2)) {
    return std::nullopt;
  }
  return DateSerial(year, month, day);
}

/// Hour on the 24-hour clock after an "AM" or "PM"; nothing when they do not go together.
std::optional<int> ClockHour(DateCursor& in, int hour) {
  in.Blanks();
  const bool morning = in.Word("AM");
  const bool evening = !morning && in.Word("PM");
  if (!morning && !evening) return hour;
  if (hour < 1 || hour > 12) return std::nullopt;
  return hour % 12 + (evening ? 12 : 0);
}

/// Time of day as a fraction of a day; the whole rest of the text.
std::optional<ModelDateTime> TimeOfDay(DateCursor& in) {
  int hour = 0, minute = 0, second = 0;
  if (!in.Number(hour, 2) || !in.Symbol(':') || !in.Number(minute, 2)) return std::nullopt;
  if (in.Symbol(':') && !in.Number(second, 2)) return std::nullopt;
  const std::optional<int> clockHour = ClockHour(in, hour);
  if (!clockHour || !in.AtEnd() || *clockHour > 23 || minute > 59 || second > 59) {
    return std::nullopt;
  }
  return static_cast<double>(*clockHour * 3600 + minute * 60 + second) / kSecondsPerDay;
}

RuntimeError NotADate(ModelDateTime dateTime) {
  return RuntimeError(ErrorNumber::Overflow, fmt::format("{} is not a date", dateTime));
}

/// A date-time in the units of the calendar and the clock, to the nearest second.
struct Moment {
  int Year;
  unsigned Month;
  unsigned Day;
  std::int64_t Hour;
  std::int64_t Minute;
};

/// Error 6 outside the years 100 to 9999.
Moment MomentOf(ModelDateTime dateTime) {
  if (!(std::abs(dateTime) < 4e6)) throw NotADate(dateTime);
  const auto seconds = static_cast<std::int64_t>(std::nearbyint(dateTime * kSecondsPerDay));
  const auto moment = kDayZero + std::chrono::seconds(seconds);
  const auto dayStart = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(dayStart);
  const auto year = static_cast<int>(date.year());
  if (year < kFirstYear || year > kLastYear) throw NotADate(dateTime);
  const std::chrono::hh_mm_ss time(moment - dayStart);
  return {year, static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
          time.hours().count(), time.minutes().count()};
}

/// Characters of the mask that make one field at its start: a run of one letter, at most four.
std::size_t FieldLength(std::string_view mask) {
  const std::string letter = LowerCase(mask.substr(0, 1));
  const std::size_t most = letter == "y" ? 4 : 2;
  std::size_t length = 1;
  while (length < most && length < mask.size() && LowerCase(mask.substr(length, 1)) == letter) {
    ++length;
  }
  return length;
}

/// At least two digits of a number, as the date text takes them. A negative one keeps its sign, so
/// that the text is no date.
std::string TwoDigits(float number) {
  const int whole = number > -99 ? static_cast<int>(number) : -99;  // the latter for NaN, too
  return whole < 0 ? std::to_string(whole) : fmt::format("{:02}", whole);
}

/// A whole day that hour 24 puts on top; an hour beyond it is told of and set to 0.
double TakeDayFromHour(float& hour, Ui& ui) {
  if (hour == 24) {
    hour = 0;
    return 1;
  }
  if (hour > 24) {
    ui.ShowMessage({.Text = "Invalid hour in date: " + NumberText(hour) +
                            ". Value must range from 00:00 to 23:59\r\n\r\nThe hour has been "
                            "reset to 00:00.",
                    .Title = "Error"});
    hour = 0;
  }
  return 0;
}

/// Whole hours, and the minutes of what is left of them to the nearest, ties to even.
struct TimeFields {
  float Hours;
  float Minutes;
};

TimeFields SplitHour(float hour) {
  // Long series have an hour in every step: the common ones take no call.
  const float hours =
      hour >= 0 && hour <= 24 ? static_cast<float>(static_cast<int>(hour)) : std::floor(hour);
  return {hours, hour == hours ? 0 : std::nearbyint((hour - hours) * 60)};
}

/// Nothing when the fields make no date. A year of fewer than three digits is none either: it would
/// have to be guessed at.
std::optional<ModelDateTime> Composed(int year, int month, int day, TimeFields time) {
  if (!(time.Hours >= 0 && time.Hours < 24 && time.Minutes < 60)) return std::nullopt;
  const std::optional<ModelDateTime> date = DateSerial(year, month, day);
  if (!date) return std::nullopt;
  return *date + static_cast<double>(time.Hours * 3600 + time.Minutes * 60) / kSecondsPerDay;
}

void Compose(int year, int month, int day, float& hour, ModelDateTime& dateTime, Ui& ui) {
  const double extraDay = TakeDayFromHour(hour, ui);
  const TimeFields time = SplitHour(hour);
  const std::optional<ModelDateTime> date = Composed(year, month, day, time);
  if (!date) {
    ui.ShowMessage(
        {.Text = fmt::format("Unable to interpret date passed to ConvertDateTime routine: "
                             "{}/{}/{} {}:{}",
                             month, day, year, TwoDigits(time.Hours), TwoDigits(time.Minutes)),
         .Title = "Error"});
    return;
  }
  dateTime = *date + extraDay;
}

}  // namespace

std::optional<ModelDateTime> DateSerial(int year, int month, int day) {
  if (year < kFirstYear || year > kLastYear || month < 1 || day < 1) return std::nullopt;
  const std::chrono::year_month_day date(std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day)));
  if (!date.ok()) return std::nullopt;
  return static_cast<double>((std::chrono::sys_days(date) - kDayZero).count());
}

ModelDateTime Today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return *DateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

std::optional<ModelDateTime> ParseDate(std::string_view text) {
  DateCursor in(text);
  if (DateCursor alone = in; const std::optional<ModelDateTime> time = TimeOfDay(alone)) {
    return time;
  }
  DateCursor iso = in;
  std::optional<ModelDateTime> date = IsoDate(iso);
  const bool isIso = date.has_value();
  if (isIso) {
    in = iso;
  } else {
    date = SlashDate(in);
  }
  if (!date || in.AtEnd()) return date;
  if (!in.Blanks() && !(isIso && in.Symbol('T'))) return std::nullopt;
  const std::optional<ModelDateTime> time = TimeOfDay(in);
  if (!time) return std::nullopt;
  return *date + *time;
}

std::string FormatDate(ModelDateTime dateTime, std::string_view mask) {
  const Moment moment = MomentOf(dateTime);
  std::string out;
  for (bool behindHour = false; !mask.empty();) {
    const std::size_t length = FieldLength(mask);
    const std::string field = LowerCase(mask.substr(0, length));
    if (field == "yyyy") {
      out += fmt::format("{:04}", moment.Year);
    } else if (field == "yy") {
      out += fmt::format("{:02}", moment.Year % 100);
    } else if (field == "mm" && !behindHour) {
      out += fmt::format("{:02}", moment.Month);
    } else if (field == "dd") {
      out += fmt::format("{:02}", moment.Day);
    } else if (field == "hh") {
      out += fmt::format("{:02}", moment.Hour);
    } else if (field == "nn" || field == "mm") {
      out += fmt::format("{:02}", moment.Minute);
    } else {
      out += mask.substr(0, length);
    }
    if (length == 2) behindHour = field == "hh";
    mask.remove_prefix(length);
  }
  return out;
}

void ConvertDateTime(std::int16_t& year, std::int16_t& month, std::int16_t& day, float& hour,
                     ModelDateTime& dateTime, bool breakUp, Ui& ui) {
  Trap trap(ui, "ConvertDateTime");
  trap.Run([&] {
    if (!breakUp) {
      Compose(year, month, day, hour, dateTime, ui);
      return;
    }
    const Moment moment = MomentOf(dateTime);
    year = static_cast<std::int16_t>(moment.Year);
    month = static_cast<std::int16_t>(moment.Month);
    day = static_cast<std::int16_t>(moment.Day);
    hour = static_cast<float>(static_cast<double>(moment.Hour) +
                              static_cast<double>(moment.Minute) / 60.0);
  });
}

}  // namespace lomaris

#include "auxiliary/met_file.h"

#include <array>
#include <optional>

#include <fmt/format.h>

#include "auxiliary/aux_text.h"
#include "auxiliary/step_progress.h"
#include "auxiliary/time_series.h"
#include "auxiliary/xsect_names.h"

namespace lomaris {
namespace {

constexpr std::int32_t kColumns = 5;
constexpr std::int32_t kDryBulb = 3;
constexpr std::int32_t kWetBulb = 4;

constexpr std::size_t kOptionsField = 5;
constexpr std::array<std::string_view, 4> kTemperatureOptions = {"", "WET", "DEW", "REL"};
constexpr std::array<std::string_view, 2> kCloudOptions = {"", "RAD"};
constexpr std::size_t kOptionSize = 3;
constexpr std::uint8_t kWetBulbOption = 1;

// --- Reading

/// The place of an option in its list, 0 for what is none of them.
template <std::size_t count>
std::uint8_t OptionOf(std::string_view text, const std::array<std::string_view, count>& options) {
  const std::string upper = UpperCase(text);
  for (std::size_t i = 1; i < count; ++i) {
    if (upper == options[i]) return static_cast<std::uint8_t>(i);
  }
  return 0;
}

void ReadOptions(const Parameters& fields, AuxData& aux) {
  if (fields.Count != kOptionsField) return;
  const std::string_view options = fields.Fields[kOptionsField - 1];
  aux.TemperatureOption = OptionOf(options.substr(0, kOptionSize), kTemperatureOptions);
  if (options.size() != 2 * kOptionSize) return;
  aux.CloudOption = OptionOf(options.substr(kOptionSize), kCloudOptions);
}

void ReadHeader(const AuxLoad& load) {
  AuxData& aux = load.Aux;
  load.In.ReadByLine(aux.DustAttenuation);
  load.In.ReadByLine(aux.Latitude, aux.Longitude, aux.LongitudeStd);
  aux.NumXSect = 2;
  aux.XSect.Resize(aux.NumXSect);
  aux.ActiveNode[1] = true;
  const Parameters fields = load.In.ReadParameters();
  aux.Interpolation = CheckedByte(fields.Number<std::int16_t>(1));
  aux.XSect[1].Node = fields.Number<std::int32_t>(2);
  aux.XSect[2].Node = fields.Number<std::int32_t>(3);
  aux.NumTimes = CheckedTimes(fields.Number<std::int32_t>(4));
  ReadOptions(fields, aux);
  aux.NumConst = kColumns - 1;
  for (std::int32_t slot = 1; slot <= kColumns; ++slot) aux.ActiveConst[slot] = true;
}

/// Holds the wet bulb of each step against its dry bulb.
class WetBulbCheck {
 public:
  explicit WetBulbCheck(const AuxLoad& load) : aux_(load.Aux), ui_(load.Around.Screen) {}

  void Check(std::int32_t step) {
    ValueBlock& values = aux_.XSect[1].Values;
    const double dryBulb = values(kDryBulb, step);
    // A thousandth less than what a correction takes off, since neither number is exact.
    if (static_cast<float>(dryBulb - 0.099) >= values(kWetBulb, step)) return;
    if (!answer_) answer_ = Ask(aux_.Times[step]);
    if (*answer_ == Answer::Yes) values(kWetBulb, step) = static_cast<float>(dryBulb - 0.1);
  }

 private:
  Answer Ask(ModelDateTime dateTime) {
    aux_.Modified = true;  // even when nothing is corrected: closing asks about such a file again
    return ui_.ShowMessage(
        {.Text = fmt::format(
             "On {} the Wet Bulb temperature was found to be greater than or equal to the Dry Bulb "
             "temperature. This is a physically impossible and will create erroneous model "
             "results.\r\n\r\nShould Lomaris correct this, and all subsequent occurrances, so that "
             "Wet Bulb never exceeds Dry Bulb temperature? If yes, remember to resave the file.",
             FormatDate(dateTime, "mm/dd/yy hh:mm")),
         .Title = "Warning",
         .BoxIcon = Icon::Question,
         .BoxButtons = Buttons::YesNo});
  }

  AuxData& aux_;
  Ui& ui_;
  std::optional<Answer> answer_;
};

bool ReadValues(const AuxLoad& load) {
  AuxData& aux = load.Aux;
  const SeriesShape shape = {.Record = SeriesShape::RecordForm::Free, .Slots = kColumns};
  WetBulbCheck wetBulb(load);
  return ReadSeries(load, shape, [&](std::int32_t step) {
    float* const row = aux.XSect[1].Values.Row(step);
    for (std::int32_t slot = 0; slot < kColumns; ++slot) row[slot] = load.In.ReadFree<float>();
    load.In.CountStepRow(aux.Times[step]);
    if (aux.TemperatureOption == kWetBulbOption) wetBulb.Check(step);
  });
}

// --- Writing

void AppendHeader(std::string& out, const AuxData& aux) {
  AppendPrintedRow(out, aux.DustAttenuation);
  AppendPrintedRow(out, aux.Latitude, aux.Longitude, aux.LongitudeStd);
  AppendPrintedFields(out, std::int16_t{aux.Interpolation}, aux.XSect[1].Node, aux.XSect[2].Node,
                      aux.NumTimes);
  out += '\t';
  out += kTemperatureOptions.at(aux.TemperatureOption);
  out += kCloudOptions.at(aux.CloudOption);
  out += kLineBreak;
}

}  // namespace

bool ReadMET(const AuxLoad& load) {
  ReadHeader(load);
  if (load.Around.Window == nullptr) return true;
  return ReadValues(load) && ReadNames(load);
}

void AppendMET(std::string& out, AuxData& aux, const AuxSurroundings& around) {
  AppendHeader(out, aux);
  ReserveSeries(out, aux, kColumns);
  const ValueBlock& values = aux.XSect[1].Values;
  StepProgress progress(around.Window, aux.NumTimes);
  for (std::int32_t step = 1; step <= aux.NumTimes; ++step) {
    const DateFields record = StepRecord(aux.Times[step], around.Screen);
    AppendPrintedFields(out, record.Year, record.Month, record.Day, record.Hour);
    for (std::int32_t slot = 1; slot <= kColumns; ++slot) {
      out += '\t';
      AppendNumber(out, values(slot, step));
    }
    out += kLineBreak;
    progress.Step(step);
  }
  AppendTerminator(out);
  AppendNames(out, aux, Names::OfXSects);
}

}  // namespace lomaris

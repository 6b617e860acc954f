#include "spreadsheet/chart_data.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "core/text.h"
#include "spreadsheet/sheet_queries.h"

namespace lomaris {
namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

/// What is beyond any quantity of a river, and beyond what an axis can be scaled to, is a gap.
double Drawable(double value) {
  constexpr double kLargest = 1e100;
  return std::abs(value) > kLargest ? kGap : value;
}

std::string OneLine(std::string_view text) {
  constexpr std::size_t kLongestName = 200;
  return Shown(ReplaceAll(ReplaceAll(text, "\r", ""), "\n", " "), kLongestName);
}

CellArea Common(const CellArea& a, const CellArea& b) {
  return {std::max(a.Top, b.Top), std::max(a.Left, b.Left), std::min(a.Bottom, b.Bottom),
          std::min(a.Right, b.Right)};
}

/// Reads one area. A line is a column of the sheet, or a row of series in rows; positions run along
/// it.
class ChartReader {
 public:
  ChartReader(const Sheet& sheet, const CellArea& area, const ChartState& state)
      : sheet_(sheet), state_(state) {
    data_.Area = Common(area, sheet.AllCells());
    data_.SeriesInRows = state.SeriesInRows;
    firstLine_ = state.SeriesInRows ? data_.Area.Top : data_.Area.Left;
  }

  ChartData Read() && {
    if (!data_.Area.Empty()) {
      if (state_.Type == ChartType::XY && Lines() > 1) {
        ReadX();
      } else {
        ReadPositions();
      }
      if (data_.Fault.empty()) ReadSeries();
    }
    if (data_.Fault.empty() && data_.Series.empty()) data_.Fault = "No numbers are selected.";
    return std::move(data_);
  }

 private:
  int Lines() const { return data_.SeriesInRows ? data_.Area.Rows() : data_.Area.Cols(); }
  int Positions() const { return data_.SeriesInRows ? data_.Area.Cols() : data_.Area.Rows(); }
  CellPlace At(int line, int position) const {
    const int along = data_.LineOf(position);
    return data_.SeriesInRows ? CellPlace{line, along} : CellPlace{along, line};
  }
  const std::string& TextAt(CellPlace place) const {
    return sheet_.TextMatrix(place.Row, place.Col);
  }

  bool HoldsDates(int line) const {
    const CellPlace first = At(line, 0);
    return sheet_.FormatOf(first.Row, first.Col).Kind == FormatKind::DateTime;
  }

  void ReadPositions() {
    data_.AtPositions = true;
    data_.X.resize(static_cast<std::size_t>(Positions()));
    std::iota(data_.X.begin(), data_.X.end(), 1.0);
    const bool byDates = state_.XLabels < 0 && Lines() > 1 && HoldsDates(firstLine_);
    const int line = byDates ? firstLine_ : LabelLine(sheet_, state_);
    if (Lines() > 1) headLine_ = line;
    ReadLabels(line);
  }

  void ReadLabels(int line) {
    data_.XName = HeadOf(line);
    data_.Labels.reserve(static_cast<std::size_t>(Positions()));
    for (int position = 0; position < Positions(); ++position) {
      std::string label = OneLine(TextAt(At(line, position)));
      data_.Labels.push_back(Trim(label).empty() ? std::to_string(position + 1) : label);
    }
  }

  void ReadX() {
    headLine_ = firstLine_;
    ReadLabels(firstLine_);
    data_.X.reserve(static_cast<std::size_t>(Positions()));
    for (int position = 0; position < Positions(); ++position) {
      const CellPlace place = At(firstLine_, position);
      const std::optional<double> value = XAt(place);
      if (!value) {
        data_.Fault = "X values must be in a date format or numeric: " + Shown(TextAt(place));
        return;
      }
      data_.X.push_back(*value);
    }
  }

  std::optional<double> XAt(CellPlace place) {
    const std::string& text = TextAt(place);
    if (Trim(text).empty()) return kGap;
    if (const std::optional<double> number = NumberOf(text)) return Drawable(*number);
    const std::optional<ModelDateTime> date = sheet_.DateOf(place.Row, place.Col);
    data_.DatesOnX |= date.has_value();
    return date;
  }

  void ReadSeries() {
    for (int line = firstLine_; line < firstLine_ + Lines(); ++line) {
      if (line == headLine_) continue;
      ChartSeries series{
          .Line = line, .Values = std::vector<double>(static_cast<std::size_t>(Positions()), kGap)};
      if (!ReadValues(series)) continue;
      data_.SeriesLeftOut = data_.Series.size() == kMostSeries;
      if (data_.SeriesLeftOut) return;
      series.Name = NameOf(line);
      data_.Series.push_back(std::move(series));
    }
  }

  bool ReadValues(ChartSeries& series) const {
    bool any = false;
    for (std::size_t position = 0; position < series.Values.size(); ++position) {
      if (std::isnan(data_.X[position])) continue;
      const std::string& text = TextAt(At(series.Line, static_cast<int>(position)));
      const std::optional<double> number = NumberOf(text);
      series.Values[position] = number ? Drawable(*number) : kGap;
      any |= !std::isnan(series.Values[position]);
    }
    return any;
  }

  std::string HeadOf(int line) const {
    const bool rows = data_.SeriesInRows;
    if ((rows ? sheet_.FixedCols() : sheet_.FixedRows()) == 0) return {};
    return OneLine(rows ? sheet_.TextMatrix(line, 0) : sheet_.TextMatrix(0, line));
  }

  std::string NameOf(int line) const {
    const std::string head = HeadOf(line);
    if (!Trim(head).empty()) return head;
    const bool rows = data_.SeriesInRows;
    const int first = rows ? sheet_.FixedRows() : sheet_.FixedCols();
    return (rows ? "Row " : "Column ") + std::to_string(line - first + 1);
  }

  const Sheet& sheet_;
  const ChartState& state_;
  ChartData data_;
  int firstLine_ = 0;
  int headLine_ = -1;  // with the labels or the X values
};

}  // namespace

CellPlace ChartData::PlaceOf(ChartPoint point) const {
  const int line = Series[static_cast<std::size_t>(point.Series)].Line;
  const int along = LineOf(point.Position);
  return SeriesInRows ? CellPlace{line, along} : CellPlace{along, line};
}

double ChartData::ValueOf(ChartPoint point) const {
  return Series[static_cast<std::size_t>(point.Series)]
      .Values[static_cast<std::size_t>(point.Position)];
}

ChartData ReadChart(const Sheet& sheet, CellArea area, const ChartState& state) {
  return ChartReader(sheet, area, state).Read();
}

int LabelLine(const Sheet& sheet, const ChartState& state) {
  const int lines = state.SeriesInRows ? sheet.Rows() : sheet.Cols();
  return state.XLabels < lines ? std::max(state.XLabels, 0) : 0;
}

void ChartedArea::Follow(Axis axis, int first, int count, bool inserted) {
  const bool rows = axis == Axis::Rows;
  int& low = rows ? area_.Top : area_.Left;
  int& high = rows ? area_.Bottom : area_.Right;
  int& lost = rows ? rowsLost_ : colsLost_;
  if (inserted) {
    const int returned = first == high + 1 ? std::min(count, lost) : 0;
    lost -= returned;
    if (first < low) low += count;
    high += first <= high ? count : returned;
    return;
  }
  const int before = std::clamp(low - first, 0, count);
  const int upToHigh = std::clamp(high + 1 - first, 0, count);
  if (first <= high && first + count > high) lost += upToHigh - before;
  low -= before;
  high -= upToHigh;
}

std::optional<ChartPoint> NextPoint(const ChartData& data, ChartPoint from, bool forward) {
  const auto last = static_cast<int>(data.X.size()) - 1;
  for (int step = forward ? 1 : -1;;) {
    from.Position += step;
    if (from.Position < 0 || from.Position > last) return std::nullopt;
    if (!std::isnan(data.ValueOf(from))) return from;
  }
}

PieSlices SlicesOf(const ChartData& data) {
  PieSlices pie;
  if (data.Series.empty()) return pie;
  const std::vector<double>& values = data.Series.front().Values;
  std::vector<std::size_t> drawn;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i] > 0) {
      drawn.push_back(i);
      pie.Sum += values[i];
    }
  }
  pie.LeftOut = static_cast<int>(values.size() - drawn.size());
  const bool tooMany = drawn.size() > kMostSlices;
  if (tooMany) {
    std::nth_element(drawn.begin(), drawn.begin() + kMostSlices - 1, drawn.end(),
                     [&](std::size_t a, std::size_t b) { return values[a] > values[b]; });
    drawn.resize(kMostSlices - 1);
    std::sort(drawn.begin(), drawn.end());
  }
  double rest = pie.Sum;
  for (const std::size_t i : drawn) {
    pie.Slices.push_back({data.Labels[i], values[i]});
    rest -= values[i];
  }
  if (tooMany) pie.Slices.push_back({"Others", rest});
  return pie;
}

}  // namespace lomaris

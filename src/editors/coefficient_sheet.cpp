#include "editors/coefficient_sheet.h"

#include <algorithm>
#include <array>
#include <utility>

#include <fmt/format.h>

#include "core/numbers.h"
#include "core/text.h"
#include "editors/typed_values.h"

namespace lomaris {
namespace {

constexpr int kHeadWidth = 18;  ///< characters of a line in the head of a column

/// What the heads say of a parameter.
struct HeadLine {
  const char* Title;
  std::string (*Text)(const KineticParameter&);
};
constexpr HeadLine kHeadLines[] = {
    {"Constant Name", [](const KineticParameter& each) { return each.Name; }},
    {"Units", [](const KineticParameter& each) { return each.Units; }},
    {"Typical", [](const KineticParameter& each) { return each.Typical; }},
    {"Variable", [](const KineticParameter& each) { return each.Mnemonic; }},
    {"Default", [](const KineticParameter& each) { return NumberText(each.Default); }}};

/// The lines that say something: a group without mnemonics is one of plain names and units.
std::vector<HeadLine> HeadLinesOf(const BoundedArray<KineticParameter>& parameters) {
  const bool isCatalogue = std::ranges::any_of(
      parameters, [](const KineticParameter& each) { return !each.Mnemonic.empty(); });
  return {std::begin(kHeadLines), isCatalogue ? std::end(kHeadLines) : std::begin(kHeadLines) + 2};
}

/// Lines of whole words, as long as a column is to be wide.
std::vector<std::string> Wrapped(std::string_view text) {
  std::vector<std::string> lines(1);
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    if (!lines.back().empty() && Length(lines.back()) + 1 + Length(word) > kHeadWidth) {
      lines.emplace_back();
    }
    if (!lines.back().empty()) lines.back() += ' ';
    lines.back() += word;
  }
  return lines;
}

/// Whether two numbers, joined by such a word, make a range.
struct RangeWord {
  std::string_view Word;
  bool Either;
};
constexpr RangeWord kRangeWords[] = {{" - ", false}, {" to ", false}, {" or ", true}};

std::string RangeText(const TypicalRange& range, const std::string& typical) {
  if (range.Either) return fmt::format("The value is to be {}.", typical);
  return fmt::format("The value is outside the typical range of {}.", typical);
}

}  // namespace

std::optional<TypicalRange> TypicalRangeOf(std::string_view typical) {
  const std::string text = LowerCase(typical);
  for (const RangeWord& each : kRangeWords) {
    const std::size_t at = text.find(each.Word);
    if (at == std::string::npos) continue;
    const std::string low = text.substr(0, at);
    const std::string high = text.substr(at + each.Word.size());
    if (!IsNumeric(low) || !IsNumeric(high)) continue;
    return TypicalRange{ToSingle(low), ToSingle(high), each.Either};
  }
  return std::nullopt;
}

CoefficientSheet::CoefficientSheet(std::string range, bool byPlace)
    : range_(std::move(range)), byPlace_(byPlace) {
  sheet_.KeepRows = true;
  sheet_.KeepCols = true;
  sheet_.Events.Change = [this] {
    Derive();
    if (Change) Change();
  };
}

void CoefficientSheet::SetParameters(const BoundedArray<KineticParameter>& parameters) {
  parameters_ = parameters;
  SetFilter({});
}

void CoefficientSheet::SetDerived(std::string heading,
                                  std::function<std::string(const Values&)> derive) {
  derivedHeading_ = std::move(heading);
  derive_ = std::move(derive);
}

void CoefficientSheet::Fill(std::vector<Place> places) {
  const auto current = Current();
  places_ = std::move(places);
  Show(current);
}

void CoefficientSheet::SetByPlace(bool byPlace) {
  const auto current = Current();
  byPlace_ = byPlace;
  Show(current);
}

void CoefficientSheet::SetFilter(const std::string& filter) {
  const auto current = Current();
  const std::string wanted = UpperCase(Trim(filter));
  lines_.clear();
  for (std::int64_t i = 1; i <= parameters_.UpperBound(); ++i) {
    const KineticParameter& each = parameters_[i];
    const std::string text = UpperCase(each.Name + "\n" + each.Units + "\n" + each.Mnemonic);
    if (text.find(wanted) != std::string::npos) lines_.push_back(i);
  }
  std::ranges::stable_sort(lines_, {}, [this](std::int64_t i) { return parameters_[i].GridRow; });
  Show(current);
}

// --- Where things stand.

CellPlace CoefficientSheet::CellOf(const Spot& spot) const {
  const int line = static_cast<int>(spot.Line) + DerivedLines();
  const int place = static_cast<int>(spot.Place);
  return byPlace_ ? CellPlace{sheet_.FixedRows() + place, sheet_.FixedCols() + line}
                  : CellPlace{sheet_.FixedRows() + line, sheet_.FixedCols() + place};
}

CellPlace CoefficientSheet::DerivedCell(std::size_t place) const {
  const int number = static_cast<int>(place);
  return byPlace_ ? CellPlace{sheet_.FixedRows() + number, sheet_.FixedCols()}
                  : CellPlace{sheet_.FixedRows(), sheet_.FixedCols() + number};
}

std::optional<CoefficientSheet::Spot> CoefficientSheet::SpotAt(int row, int col) const {
  const int fromTop = row - sheet_.FixedRows();
  const int fromLeft = col - sheet_.FixedCols();
  const int line = (byPlace_ ? fromLeft : fromTop) - DerivedLines();
  const int place = byPlace_ ? fromTop : fromLeft;
  if (line < 0 || line >= std::ssize(lines_) || place < 0 || place >= std::ssize(places_)) {
    return std::nullopt;
  }
  return Spot{static_cast<std::size_t>(line), static_cast<std::size_t>(place)};
}

CoefficientSheet::Coefficient CoefficientSheet::Current() const {
  const auto spot = SpotAt(sheet_.Selected().Row, sheet_.Selected().Col);
  return spot ? Coefficient{lines_[spot->Line], spot->Place} : Coefficient{};
}

/// One that is on view no more makes way for the first one.
void CoefficientSheet::Select(const Coefficient& current) {
  Spot spot;
  const auto line = std::ranges::find(lines_, current.Position);
  if (line != lines_.end() && current.Place < places_.size()) {
    spot = {static_cast<std::size_t>(line - lines_.begin()), current.Place};
  }
  const CellPlace at = CellOf(spot);
  sheet_.SelectArea({at.Row, at.Col, at.Row, at.Col});
}

const KineticParameter& CoefficientSheet::Parameter(std::size_t line) const {
  return parameters_[lines_.at(line)];
}

// --- Showing and taking.

void CoefficientSheet::Show(const Coefficient& current) {
  const int lines = static_cast<int>(lines_.size()) + DerivedLines();
  const int places = static_cast<int>(places_.size());
  const int heads = byPlace_ ? 1 : static_cast<int>(HeadLinesOf(parameters_).size());
  sheet_.SetRows(0);
  sheet_.SetCols(0);
  sheet_.SetCols(heads + (byPlace_ ? lines : places));
  sheet_.SetRows(1 + (byPlace_ ? places : lines));
  sheet_.SetFixed(1, heads);
  sheet_.ReadOnlyRows = byPlace_ ? 0 : DerivedLines();
  sheet_.ReadOnlyCols = byPlace_ ? DerivedLines() : 0;
  byPlace_ ? ShowPlaceHeads() : ShowParameterHeads();
  SetFormats();
  for (std::size_t place = 0; place < places_.size(); ++place) {
    for (std::size_t line = 0; line < lines_.size(); ++line) {
      const CellPlace at = CellOf({line, place});
      const float value = places_[place].Coefficients[lines_[line]];
      sheet_.SetTextMatrix(at.Row, at.Col, NumberText(value));
    }
  }
  Derive();
  Select(current);
}

/// Parameters are rows: what the heads say of them stands in columns.
void CoefficientSheet::ShowParameterHeads() {
  sheet_.SetFixedAlignment(0, Alignment::Left);
  int col = 0;
  for (const HeadLine& head : HeadLinesOf(parameters_)) {
    sheet_.SetTextMatrix(0, col, head.Title);
    for (std::size_t line = 0; line < lines_.size(); ++line) {
      sheet_.SetTextMatrix(CellOf({line, 0}).Row, col, head.Text(Parameter(line)));
    }
    ++col;
  }
  if (derive_) sheet_.SetTextMatrix(sheet_.FixedRows(), 0, derivedHeading_);
  for (const Place& place : places_) sheet_.SetTextMatrix(0, col++, place.Name);
}

/// Places are rows: a column has one head of several lines, the names being as high as the highest.
void CoefficientSheet::ShowPlaceHeads() {
  const std::vector<HeadLine> heads = HeadLinesOf(parameters_);
  std::size_t height = Wrapped(derivedHeading_).size();
  for (const std::int64_t i : lines_) {
    height = std::max(height, Wrapped(parameters_[i].Name).size());
  }
  const auto head = [&](int col, std::vector<std::string> name, const auto& textOf) {
    name.resize(height);
    for (std::size_t i = 1; i < heads.size(); ++i) name.push_back(textOf(heads[i]));
    sheet_.SetTextMatrix(0, col, fmt::format("{}", fmt::join(name, "\n")));
  };
  head(0, {fmt::format("{} ->", heads.front().Title)},
       [](const HeadLine& each) { return fmt::format("{} ->", each.Title); });
  if (derive_) {
    head(sheet_.FixedCols(), Wrapped(derivedHeading_), [](const auto&) { return std::string(); });
  }
  for (std::size_t line = 0; line < lines_.size(); ++line) {
    const KineticParameter& parameter = Parameter(line);
    head(CellOf({line, 0}).Col, Wrapped(parameter.Name),
         [&](const HeadLine& each) { return each.Text(parameter); });
  }
  for (std::size_t place = 0; place < places_.size(); ++place) {
    sheet_.SetTextMatrix(CellOf({0, place}).Row, 0, places_[place].Name);
  }
}

/// An option is chosen from its two values; a parameter whose typical range goes below zero takes
/// negative values as well.
Format CoefficientSheet::FormatOf(const KineticParameter& parameter) const {
  const auto typical = TypicalRangeOf(parameter.Typical);
  if (typical && typical->Either) {
    return {FormatKind::Choice, NumberText(typical->Low) + ";" + NumberText(typical->High)};
  }
  if (!typical || typical->Low >= 0) return {FormatKind::Number, range_};
  const std::string most = range_.substr(range_.find(';') + 1);
  return {FormatKind::Number, "-" + most + ";" + most};
}

void CoefficientSheet::SetFormats() {
  for (int col = sheet_.FixedCols(); col < sheet_.Cols(); ++col) {
    sheet_.SetColFormat(col, {FormatKind::Number, range_});
  }
  for (std::size_t line = 0; line < lines_.size(); ++line) {
    const Format format = FormatOf(Parameter(line));
    for (std::size_t place = 0; place < places_.size(); ++place) {
      const CellPlace at = CellOf({line, place});
      if (sheet_.FormatOf(at.Row, at.Col) != format) sheet_.SetCellFormat(at.Row, at.Col, format);
    }
  }
}

bool CoefficientSheet::Take(Ui& ui) {
  std::vector<Values> taken;
  for (std::size_t place = 0; place < places_.size(); ++place) {
    Values values = places_[place].Coefficients;
    for (std::size_t line = 0; line < lines_.size(); ++line) {
      const CellPlace at = CellOf({line, place});
      const std::string what = fmt::format("{}, {}", Parameter(line).Name, places_[place].Name);
      if (!TakeNumber(values[lines_[line]], sheet_.TextMatrix(at.Row, at.Col), what, ui)) {
        return false;
      }
    }
    taken.push_back(std::move(values));
  }
  for (std::size_t place = 0; place < places_.size(); ++place) {
    places_[place].Coefficients = std::move(taken[place]);
  }
  return true;
}

// --- What follows from the values.

/// That of the cell, as far as it makes one.
float CoefficientSheet::ValueIn(const Spot& spot) const {
  const CellPlace at = CellOf(spot);
  const std::string& text = sheet_.TextMatrix(at.Row, at.Col);
  float value = places_[spot.Place].Coefficients[lines_[spot.Line]];
  if (Trim(text) == NumberText(value)) return value;
  if (Trim(text).empty()) return 0;
  try {
    return ToSingle(text);
  } catch (const RuntimeError&) {  // taking it will tell
    return value;
  }
}

CoefficientSheet::Values CoefficientSheet::ValuesIn(std::size_t place) const {
  Values values = places_[place].Coefficients;
  for (std::size_t line = 0; line < lines_.size(); ++line) {
    values[lines_[line]] = ValueIn({line, place});
  }
  return values;
}

void CoefficientSheet::Derive() {
  if (!derive_) return;
  for (std::size_t place = 0; place < places_.size(); ++place) {
    const CellPlace at = DerivedCell(place);
    sheet_.SetDerivedText(at.Row, at.Col, derive_(ValuesIn(place)));
  }
}

std::string CoefficientSheet::Description(int row, int col) const {
  const auto spot = SpotAt(row, col);
  if (!spot) return derive_ ? derivedHeading_ + ", which follows from the coefficients" : "";
  const KineticParameter& each = Parameter(spot->Line);
  std::string text = each.Name;
  if (!each.Mnemonic.empty()) text += fmt::format(" ({})", each.Mnemonic);
  if (!each.Units.empty()) text += ", " + each.Units;
  if (!each.Typical.empty()) text += "; typical " + each.Typical;
  return text + "; default " + NumberText(each.Default);
}

std::string CoefficientSheet::Remark(int row, int col) const {
  const auto spot = SpotAt(row, col);
  if (!spot) return {};
  const KineticParameter& each = Parameter(spot->Line);
  const auto range = TypicalRangeOf(each.Typical);
  const float value = ValueIn(*spot);
  if (!range || value == each.Default || range->Holds(value)) return {};
  return RangeText(*range, each.Typical);
}

void CoefficientSheet::ResetSelection() {
  const CellArea area = sheet_.SelectedArea();
  sheet_.AsStep([&] {
    for (int row = area.Top; row <= area.Bottom; ++row) {
      for (int col = area.Left; col <= area.Right; ++col) {
        const auto spot = SpotAt(row, col);
        if (spot) sheet_.SetTextMatrix(row, col, NumberText(Parameter(spot->Line).Default));
      }
    }
    return true;
  });
}

}  // namespace lomaris

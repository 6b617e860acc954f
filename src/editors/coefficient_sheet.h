#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports/ui.h"
#include "model/kinetic_catalogue.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// What the typical text of a parameter says of its values: a range ("0.5 - 2", "0 to 1"), or two
/// numbers one of which it is ("0 or 1").
struct TypicalRange {
  float Low = 0;
  float High = 0;
  bool Either = false;  ///< one of the two alone

  bool Holds(float value) const {
    return Either ? value == Low || value == High : value >= Low && value <= High;
  }
};

/// Nothing for a text that names no range: a single typical value leaves all others open.
std::optional<TypicalRange> TypicalRangeOf(std::string_view typical);

/// A grid of coefficients: those of one group, for one or more places of the river. Parameters are
/// its rows and places its columns, or the other way round. The heads give each parameter's name,
/// units, typical value, mnemonic and default, as far as the group has them.
///
/// Its owner fills it with values, which it keeps a copy of. What the cells say is taken into that
/// copy when the owner asks for it, before it puts the values back where they came from.
class CoefficientSheet {
 public:
  using Values = BoundedArray<float>;

  /// `range`: "lower;upper" of every cell.
  CoefficientSheet(std::string range, bool byPlace);
  CoefficientSheet(const CoefficientSheet&) = delete;
  CoefficientSheet& operator=(const CoefficientSheet&) = delete;

  /// Before anything is filled in.
  void SetParameters(const BoundedArray<KineticParameter>& parameters);

  /// One line of texts before the coefficients, which nobody edits: what follows from the values of
  /// a place.
  void SetDerived(std::string heading, std::function<std::string(const Values&)> derive);

  Sheet& Grid() { return sheet_; }
  const Sheet& Grid() const { return sheet_; }

  /// After any change of the grid by the user, with what is derived up to date.
  std::function<void()> Change = {};

  struct Place {
    std::string Name;
    Values Coefficients;  ///< by position
  };
  void Fill(std::vector<Place> places);

  /// Takes the cells: all, or, having told what is wrong, none.
  bool Take(Ui& ui);

  /// The values of a place, from 0, as they were filled in or taken last.
  const Values& ValuesOf(std::size_t place) const { return places_.at(place).Coefficients; }

  /// The same as the cells have them by now; of one that makes no number, as it was.
  Values ValuesIn(std::size_t place) const;

  // Both fill the grid anew; what is to stay has been taken before. The current cell is that of the
  // same coefficient, if it is still on view.
  void SetByPlace(bool byPlace);
  /// Shows the parameters alone whose name, units or mnemonic hold the text.
  void SetFilter(const std::string& filter);

  /// Brings what is derived up to date; after an edit in this grid it is.
  void Derive();

  /// The parameter of a cell in words, or what is derived; empty for a cell that has neither.
  std::string Description(int row, int col) const;

  /// What is to be said of a value that is not typical. Empty for one that is, and for the default,
  /// with which many a process is simply not there.
  std::string Remark(int row, int col) const;

  /// Gives the selected cells their defaults, as one step.
  void ResetSelection();

 private:
  /// A parameter on view, and a place, by their numbers from 0.
  struct Spot {
    std::size_t Line = 0;
    std::size_t Place = 0;
  };

  /// The coefficient of the current cell, whichever way round the grid is.
  struct Coefficient {
    std::int64_t Position = 0;  ///< 0 for none
    std::size_t Place = 0;
  };

  Coefficient Current() const;
  void Select(const Coefficient& current);
  CellPlace CellOf(const Spot& spot) const;
  CellPlace DerivedCell(std::size_t place) const;
  std::optional<Spot> SpotAt(int row, int col) const;
  const KineticParameter& Parameter(std::size_t line) const;
  float ValueIn(const Spot& spot) const;
  void Show(const Coefficient& current);
  void ShowParameterHeads();
  void ShowPlaceHeads();
  Format FormatOf(const KineticParameter& parameter) const;
  void SetFormats();
  int DerivedLines() const { return derive_ ? 1 : 0; }

  std::string range_;
  bool byPlace_;
  BoundedArray<KineticParameter> parameters_;
  std::string derivedHeading_;
  std::function<std::string(const Values&)> derive_;
  std::vector<Place> places_;
  std::vector<std::int64_t> lines_;  ///< positions of the parameters on view, in the grid's order
  Sheet sheet_;
};

}  // namespace lomaris

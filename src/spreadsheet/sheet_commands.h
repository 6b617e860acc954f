#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/cell_limit.h"
#include "core/ports/ui.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// In the order of the menu.
enum class SheetCommand {
  Cut,
  Copy,
  Paste,
  Clear,
  SelectAll,
  Fill,
  Series,
  Multiply,
  Add,
  ShowStats,
  Append,
  Insert,
  Delete,
};

struct EditMenuItem {
  SheetCommand Command;
  const char* Caption;
  bool LineBefore;  ///< a line stands above it
  bool Changes;     ///< not offered by a table that is read-only
};

/// The edit menu but for its last line and item, the chart.
inline constexpr EditMenuItem kEditMenu[] = {
    {SheetCommand::Cut, "Cu&t", false, true},
    {SheetCommand::Copy, "&Copy", false, false},
    {SheetCommand::Paste, "&Paste", false, true},
    {SheetCommand::Clear, "&Clear", false, true},
    {SheetCommand::SelectAll, "Select A&ll", false, false},
    {SheetCommand::Fill, "&Fill", true, true},
    {SheetCommand::Series, "&Series...", false, true},
    {SheetCommand::Multiply, "&Multiply...", false, true},
    {SheetCommand::Add, "A&dd...", false, true},
    {SheetCommand::ShowStats, "S&how Stats", true, false},
    {SheetCommand::Append, "&Append...", true, true},
    {SheetCommand::Insert, "&Insert", false, true},
    {SheetCommand::Delete, "&Delete", false, true},
};

/// Cells with a date behind their text, at places counted from the corner of a copied area.
using DatedCells = std::vector<std::pair<CellPlace, Cell>>;

/// What the clipboard's text does not tell of the cells it was copied from: the full dates. Held as
/// long as the tables among which cells are copied, and shared by them.
struct CopiedDates {
  std::string Text = {};  ///< what was put on the clipboard
  DatedCells Cells = {};
};

/// The commands of the edit menu on the selected cells of a sheet. Each that changes cells is one
/// step of the history. Fill, Series, Multiply and Add leave read-only cells alone. A failure is
/// reported, and nothing is changed then.
class SheetCommands {
 public:
  /// All three outlive this.
  SheetCommands(Sheet& sheet, Ui& ui, CopiedDates& copied)
      : sheet_(sheet), ui_(ui), copied_(copied) {}

  bool Offered(SheetCommand command) const;

  /// Does nothing when the command is not offered.
  void Run(SheetCommand command);

 private:
  using Routine = void (SheetCommands::*)();
  static const Routine kRoutines[];

  void Cut();
  void Copy();
  void Paste();
  void Clear();
  void SelectAll();
  void Fill();
  void Series();
  void Multiply();
  void Add();
  void ShowStats();
  void Append();
  void Insert();
  void Delete();

  void ShowError(std::string_view text);
  std::optional<double> AskNumber(const InputBox& box);
  void DateSeries(const CellArea& area);
  void NumberSeries(const CellArea& area);
  void TextSeries(const CellArea& area);
  void PasteBlock(std::string_view text, const DatedCells& dates);
  bool CheckMayMove(Axis axis);
  bool CheckRoomFor(Axis axis, std::int64_t lines);

  void WriteAll(const CellArea& area, const Cell& cell);

  /// Writes what `cellAt(row, col)` gives, where it gives something, into the cells of the area
  /// that are not read-only.
  template <class CellAt>
  void WriteFree(const CellArea& area, CellAt&& cellAt);

  template <class Change>
  void ChangeNumbers(Change&& change);

  Sheet& sheet_;
  Ui& ui_;
  CopiedDates& copied_;
  std::string pasted_;  // while Paste runs, what the clipboard held when it began
};

}  // namespace lomaris

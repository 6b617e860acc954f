#pragma once

#include <algorithm>
#include <deque>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "core/text.h"
#include "spreadsheet/sheet_commands.h"
#include "spreadsheet/sheet_queries.h"
#include "support/scripted_ui.h"

namespace lomaris {

/// A table with one fixed row and column; a block of cells is written "a,b|c,d".
class SheetTest : public testing::Test {
 protected:
  void Set(const std::string& block, FormatKind kind = FormatKind::Text) {
    const std::string firstRow = block.substr(0, block.find('|'));
    sheet_ = Sheet(1, static_cast<int>(std::count(firstRow.begin(), firstRow.end(), ',')) + 2);
    for (int col = 1; col < sheet_.Cols(); ++col) sheet_.SetColFormat(col, {kind});
    std::istringstream rows(block + '|');
    for (std::string row; std::getline(rows, row, '|');) {
      sheet_.AddItem('\t' + ReplaceAll(row, ",", "\t"));
    }
  }

  std::string Block(const CellArea& area) const {
    return ReplaceAll(ReplaceAll(ClipText(sheet_, area), "\r\n", "|"), "\t", ",");
  }
  std::string All() const { return Block(sheet_.AllCells()); }

  void Run(SheetCommand command, const Selection& selection,
           const std::deque<std::string>& answers = {}) {
    sheet_.Select(selection);
    ui_.Texts = answers;
    commands_.Run(command);
  }

  Sheet sheet_;
  ScriptedUi ui_;
  CopiedDates copied_;
  SheetCommands commands_{sheet_, ui_, copied_};
};

}  // namespace lomaris

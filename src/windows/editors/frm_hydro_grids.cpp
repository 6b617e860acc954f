// The grids of the hydrodynamic editor, and the picture under its cross sections.

#include <algorithm>
#include <iterator>

#include "editors/step_sheet.h"
#include "editors/xsect_sheet.h"
#include "windows/core/qt_text.h"
#include "windows/editors/frm_hydro.h"
#include "windows/editors/ui_frm_hydro.h"

namespace lomaris {
namespace {

constexpr const char* kUnknownLookup = "The cross section library has no section of this name.";

}  // namespace

std::array<Spreadsheet*, 3> frmHydro::Grids() const {
  return {ui_->ssTimeSteps, ui_->ssResults, ui_->ssXSect};
}

bool frmHydro::EndGridEdits() {
  const auto grids = Grids();
  return std::ranges::all_of(grids, &Spreadsheet::EndEdit);
}

void frmHydro::SetUpGrids() {
  CopiedDates& copied = around_.Session.Copied;
  ui_->ssTimeSteps->Attach(desk_.TimeSteps(), around_.Screen, around_.Store, copied);
  ui_->ssResults->Attach(desk_.Results(), around_.Screen, around_.Store, copied);
  ui_->ssXSect->Attach(desk_.XSects(), around_.Screen, around_.Store, copied);
  for (Spreadsheet* grid : {ui_->ssTimeSteps, ui_->ssResults}) {
    grid->SetColWidthText(kStartCol, kStartWidth);
    grid->SetColWidthText(kStepValueCol, kStepValueWidth);
  }
  const Sheet& xsects = desk_.XSects();
  for (int col = xsects.FixedCols(); col < xsects.Cols(); ++col) {
    ui_->ssXSect->SetColWidthText(col, Spreadsheet::WidestLine(xsects.TextMatrix(0, col)) + "  ");
  }
}

void frmHydro::ConnectGrids() {
  ui_->splitXSect->setSizes({270, 230});
  Spreadsheet* grid = ui_->ssXSect;
  connect(grid, &Spreadsheet::Refreshed, this, &frmHydro::ShowProfile);
  connect(grid, &Spreadsheet::CurrentRowChanged, ui_->plotProfile, &ProfilePlot::MarkRow);
  connect(ui_->plotProfile, &ProfilePlot::RowClicked, grid, [this, grid](int row) {
    const Selection& selected = desk_.XSects().Selected();
    grid->ShowCell(row, selected.Col);
  });
  grid->SetMark([this](int row, int col) {
    const bool isMarked = col == kLookupCol && std::ranges::binary_search(marked_, row);
    return isMarked ? QString(kUnknownLookup) : QString();
  });
}

void frmHydro::ShowProfile() {
  marked_ = desk_.UnknownLookups();
  ui_->plotProfile->ShowProfile(BedProfile(desk_.XSects()));
  ui_->plotProfile->MarkRow(ui_->ssXSect->CurrentRow());
  ui_->ssXSect->update();
}

}  // namespace lomaris

// The grids of the water quality editor.

#include <QSignalBlocker>
#include <algorithm>

#include "editors/step_sheet.h"
#include "windows/core/qt_text.h"
#include "windows/editors/frm_qual.h"
#include "windows/editors/ui_frm_qual.h"

namespace lomaris {
namespace {

constexpr const char* kValueWidth = "999999.9999";

}  // namespace

std::array<Spreadsheet*, 7> frmQual::Grids() const {
  return {ui_->ssResults,     ui_->ssGlobalKinetics, ui_->ssBranchKinetics, ui_->ssXSectKinetics,
          ui_->ssInitialCond, ui_->ssLateralInflows, ui_->ssPlotted};
}

bool frmQual::EndEdits() {
  return std::ranges::all_of(Grids(), &Spreadsheet::EndEdit);
}

void frmQual::SetUpGrids() {
  CopiedDates& copied = around_.Session.Copied;
  ui_->ssResults->Attach(desk_.PrintSteps(), around_.Screen, around_.Store, copied);
  ui_->ssResults->SetColWidthText(kStartCol, kStartWidth);
  ui_->ssResults->SetColWidthText(kStepValueCol, kStepValueWidth);
  ui_->ssPlotted->Attach(desk_.Plotted(), around_.Screen, around_.Store, copied);
  ui_->ssPlotted->SetMark([this](int row, int col) { return ToQt(desk_.PlottedRemark(row, col)); });
  coefficients_ = {{{ui_->ssGlobalKinetics, &desk_.GlobalKinetics(), ui_->txtFilterGlobal},
                    {ui_->ssBranchKinetics, &desk_.BranchKinetics(), ui_->txtFilterBranch},
                    {ui_->ssXSectKinetics, &desk_.XSectKinetics(), ui_->txtFilterXSect},
                    {ui_->ssInitialCond, &desk_.InitialCond(), nullptr},
                    {ui_->ssLateralInflows, &desk_.LateralInflows(), nullptr}}};
  for (CoefficientGrid& grid : coefficients_) SetUpCoefficients(grid);
  connect(ui_->chkXSectKinetics, &QCheckBox::toggled, this, &frmQual::ShowByXSect);
}

void frmQual::SetUpCoefficients(CoefficientGrid& grid) {
  grid.Grid->Attach(grid.Sheet->Grid(), around_.Screen, around_.Store, around_.Session.Copied);
  grid.Grid->SetMark([&grid](int row, int col) { return ToQt(grid.Sheet->Remark(row, col)); });
  connect(grid.Grid, &Spreadsheet::SelectionMoved, this, [this, &grid] { ShowParameter(grid); });
  if (grid.Filter == nullptr) return;
  grid.Filter->setClearButtonEnabled(true);
  connect(grid.Filter, &QLineEdit::textChanged, this, [this, &grid] { ApplyFilter(grid); });
}

void frmQual::SetColumnWidths(const CoefficientGrid& grid) {
  const Sheet& sheet = grid.Sheet->Grid();
  for (int col = 1; col < sheet.Cols(); ++col) {
    QString widest = col < sheet.FixedCols() ? QString() : QString(kValueWidth);
    const int rows = col < sheet.FixedCols() ? sheet.Rows() : sheet.FixedRows();
    for (int row = 0; row < rows; ++row) {
      const QString line = Spreadsheet::WidestLine(sheet.TextMatrix(row, col));
      if (line.size() > widest.size()) widest = line;
    }
    grid.Grid->SetColWidthText(col, widest + "  ");
  }
}

/// What the coefficient of the current cell is, under the grids.
void frmQual::ShowParameter(const CoefficientGrid& grid) {
  const Selection& selected = grid.Sheet->Grid().Selected();
  ui_->lblParameter->setText(ToQt(grid.Sheet->Description(selected.Row, selected.Col)));
}

void frmQual::ApplyFilter(CoefficientGrid& grid) {
  const QString text = grid.Filter->text();
  if (EndEdits() && desk_.Filter(*grid.Sheet, FromQt(text))) {
    grid.Filtered = FromQt(text);
    SetColumnWidths(grid);
    ShowParameter(grid);
  } else {
    const QSignalBlocker ownChange(grid.Filter);
    grid.Filter->setText(ToQt(grid.Filtered));
  }
}

/// A file that is opened is shown whole.
void frmQual::ForgetFilters() {
  for (CoefficientGrid& grid : coefficients_) {
    if (grid.Filter == nullptr) continue;
    const QSignalBlocker ownChange(grid.Filter);
    grid.Filter->clear();
    grid.Filtered.clear();
  }
}

void frmQual::ShowByXSect(bool byXSect) {
  if (EndEdits() && desk_.ShowByXSect(byXSect)) {
    SetColumnWidths(coefficients_[2]);
  } else {
    const QSignalBlocker ownChange(ui_->chkXSectKinetics);
    ui_->chkXSectKinetics->setChecked(!byXSect);
  }
}

/// Of the grid on view.
void frmQual::ResetToDefaults() {
  for (const CoefficientGrid& grid : coefficients_) {
    if (grid.Grid->isVisible() && EndEdits()) desk_.ResetToDefaults(*grid.Sheet);
  }
}

}  // namespace lomaris

#include "windows/spreadsheet/sheet_chart.h"

namespace lomaris {

SheetChart::SheetChart(Sheet& sheet, Ui& screen, ChartState& state, QWidget* parent)
    : QWidget(parent), sheet_(sheet), screen_(screen), state_(state) {}

bool SheetChart::ShowArea(const CellArea&) {
  return false;
}

}  // namespace lomaris

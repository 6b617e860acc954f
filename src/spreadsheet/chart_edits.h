#pragma once

#include "core/ports/ui.h"
#include "spreadsheet/chart_data.h"

namespace lomaris {

/// Asks for the column, or row, with the labels of the X axis. True when the state was changed; a
/// blank answer changes nothing, and one that names no column is told of.
bool AskXLabels(const Sheet& sheet, ChartState& state, Ui& ui);

/// Writes the value of a point into its cell, as one step. False, with nothing changed, when the
/// cell refuses it: it is read-only, or the value lies outside its limits.
bool WritePoint(Sheet& sheet, CellPlace place, double value);

/// A new row, or column of series in rows, before that of a point; as one step. Its cells within
/// the area get the means of their neighbours, so that the new point is seen, and can be dragged.
/// False, with nothing changed, when the table is closed to it or its owner cancels it.
bool InsertPoint(Sheet& sheet, const ChartData& data, int position);

/// Takes out the whole row, or column, of a point. False as above.
bool DeletePoint(Sheet& sheet, const ChartData& data, int position);

/// The largest power of ten that is not above `size`, which is above 0.
double DecimalStep(double size);

/// A value that was pointed at, rounded to a multiple of a power of ten.
double RoundedPoint(double value, double step);

}  // namespace lomaris

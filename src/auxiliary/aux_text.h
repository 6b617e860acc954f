#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "auxiliary/aux_data.h"
#include "core/numbers.h"
#include "model/input_file.h"
#include "model/step_table.h"

namespace lomaris {

// What the writers of auxiliary files have in common. A row of joined numbers is `AppendRow`, a
// text on its own line `AppendLine`.

/// Printed numbers, a tab between them, no line end.
template <class First, class... Rest>
void AppendPrintedFields(std::string& out, First first, Rest... rest) {
  AppendPrinted(out, first);
  ((out += '\t', AppendPrinted(out, rest)), ...);
}

template <class... Numbers>
void AppendPrintedRow(std::string& out, Numbers... numbers) {
  AppendPrintedFields(out, numbers...);
  out += kLineBreak;
}

/// Makes room for all numbers of the series, so that the text never moves while it grows. Memory
/// that is not written to costs nothing.
void ReserveSeries(std::string& out, const AuxData& aux, std::size_t valuesPerStep);

void AppendDescriptions(std::string& out, const AuxData& aux);

/// The record of a time step. Error 6 for a date that no file can hold, and for one of the year
/// that ends a series.
DateFields StepRecord(ModelDateTime dateTime, Ui& ui);

/// A time step record of printed numbers on its own line.
void AppendPrintedRecord(std::string& out, ModelDateTime dateTime, Ui& ui);

/// The year, month, day and hour that no step has. For every kind but BCF.
void AppendTerminator(std::string& out);

/// The names of all entries, the inactive ones too, although the rest of the file holds the active
/// ones only: the model takes its names by their number, and passes over what follows.
enum class Names { OfXSects, OfXSectsAndIntakes };
void AppendNames(std::string& out, const AuxData& aux, Names names);

/// The entries that are written, in order.
std::vector<const AuxXSect*> ActiveXSects(const AuxData& aux);

/// The value of one slot at one step in all of the entries, in a row of joined numbers. No row for
/// no entries: the reader, which counts numbers, would take its line for the next record.
void AppendSlotRow(std::string& out, const std::vector<const AuxXSect*>& xsects, std::int32_t slot,
                   std::int32_t step);

}  // namespace lomaris

#pragma once

#include "core/ports/ui.h"
#include "model/hydro_input.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// One of the two tables of steps: its place in the record and its words.
struct StepTable {
  std::int16_t HydroInput::*Count;
  BoundedArray<TimeStepEntry> HydroInput::*Steps;
  const char* ValueHeading;
  const char* ValueRange;
  const char* Name;   ///< as the messages name a step
  const char* Entry;  ///< as the refusal to lose the second one names it
};

inline constexpr StepTable kTimeStepTable = {&HydroInput::TimeStepCount, &HydroInput::TimeSteps,
                                             "Time Step|(sec)",          "0.0001;999999",
                                             "computational time step",  "time step"};
inline constexpr StepTable kPrintStepTable = {&HydroInput::PrintStepCount, &HydroInput::PrintSteps,
                                              "Interval|(hours)",          "0.0000;999999",
                                              "print time step",           "print step"};

// Columns of `ssTimeSteps` and `ssResults`, and the texts that their widths are made for.
inline constexpr int kStartCol = 1;
inline constexpr int kStepValueCol = 2;
inline constexpr const char* kStartWidth = " 99/99/99 99:99 XX";
inline constexpr const char* kStepValueWidth = "999999999999";

/// An empty grid of steps. It asks `ui`, which outlives it, when its second entry would be lost.
void SetUpSteps(Sheet& sheet, const StepTable& table, Ui& ui);

/// Fills the grid, with an empty row ready at the end, and two rows at least.
void FillSteps(Sheet& sheet, const StepTable& table, const HydroInput& hydro);

/// Checks the rows, up to the last one that is not empty, against each other and against the start
/// of the simulation in `hydro`, and takes them. False: the user has been told what is wrong, and
/// the record is as it was.
bool StoreSteps(const Sheet& sheet, const StepTable& table, HydroInput& hydro, Ui& ui);

}  // namespace lomaris

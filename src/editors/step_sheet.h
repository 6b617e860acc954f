#pragma once

#include "core/ports/ui.h"
#include "model/hydro_input.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// The words of a table of steps.
struct StepTable {
  const char* ValueHeading;
  const char* ValueRange;
  const char* Name;   ///< as the messages name a step
  const char* Entry;  ///< as the refusal to lose the second one names it
};

inline constexpr StepTable kTimeStepTable = {"Time Step|(sec)", "0.0001;999999",
                                             "computational time step", "time step"};
inline constexpr StepTable kPrintStepTable = {"Interval|(hours)", "0.0000;999999",
                                              "print time step", "print step"};
inline constexpr StepTable kQualPrintStepTable = {"Interval|(hours)", "0.000;9999",
                                                  "print time step", "print step"};

/// The steps of a record.
struct StepList {
  std::int16_t& Count;
  BoundedArray<TimeStepEntry>& Steps;
};

// Columns of `ssTimeSteps` and `ssResults`, and the texts that their widths are made for.
inline constexpr int kStartCol = 1;
inline constexpr int kStepValueCol = 2;
inline constexpr const char* kStartWidth = " 99/99/99 99:99 XX";
inline constexpr const char* kStepValueWidth = "999999999999";

/// An empty grid of steps. It asks `ui`, which outlives it, when its second entry would be lost.
void SetUpSteps(Sheet& sheet, const StepTable& table, Ui& ui);

/// Fills the grid, with an empty row ready at the end, and two rows at least.
void FillSteps(Sheet& sheet, const StepList& list);

/// Checks the rows, up to the last one that is not empty, against each other and against the start
/// of the simulation, and takes them. False: the user has been told what is wrong, and the list is
/// as it was.
bool StoreSteps(const Sheet& sheet, const StepTable& table, ModelDateTime simulationStart,
                const StepList& list, Ui& ui);

}  // namespace lomaris

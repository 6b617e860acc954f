#pragma once

#include <string>

#include "core/ports/ui.h"

namespace lomaris {

// What the options windows set, as they show it at first, and the command tails made of it. A tail
// starts with a blank, and so does each of its switches; their order is fixed.

/// Output files of a model program, switches -M -E -O -B. (Time-variable information in the OUT
/// file is shown among them and passes nothing on.)
struct OutputFiles {
  bool Messages = true;
  bool Errors = true;
  bool Output = true;
  bool MassBalance = true;
};

/// Numerical solution technique of the water quality model.
enum class Transport { Holly, Upwind, Quickest };

/// `frmOptionsH`.
struct HydroRunOptions {
  bool HydroLink = true;      ///< write a linkage file
  bool WaspLinkage = false;   ///< in the format of WASP, else in the model's own
  int WaspStep = 1;           ///< every n-th step goes into the linkage file
  bool InitialLevels = true;  ///< recompute the initial water surface elevations
  OutputFiles Files;
};

/// `frmOptionsQ`.
struct QualRunOptions {
  bool HydroLink = true;  ///< the model asks for a linkage file of another name
  Transport Solution = Transport::Upwind;
  bool DewPoint = false;  ///< temperature of legacy weather files, else wet bulb
  OutputFiles Files;
};

/// `frmOptions`, for both programs in turn.
struct BothRunOptions {
  bool InitialLevels = true;
  Transport Solution = Transport::Upwind;
  bool DewPoint = false;
  OutputFiles Files;
};

std::string CommandTail(const HydroRunOptions& options);
std::string CommandTail(const QualRunOptions& options);
/// The linkage file between the two programs is always there, in the model's own format.
std::string FirstTail(const BothRunOptions& options);
std::string SecondTail(const BothRunOptions& options);

/// Asks which steps go into a WASP linkage file. What is no number above 0 leaves `step` alone.
void AskWaspStep(int& step, Ui& ui);

}  // namespace lomaris

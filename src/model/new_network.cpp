#include "model/new_network.h"

#include "core/numbers.h"

namespace lomaris {

HydroInput NewNetwork(ModelDateTime start, ModelDateTime end) {
  constexpr float kTimeStep = 300;  // s
  constexpr float kPrintStep = 1;   // h
  HydroInput hydro;
  hydro.StartDate = start;
  hydro.EndDate = end;
  hydro.Theta = 0.75F;
  hydro.Tolerance = 0.1F;
  hydro.Beta = 1;
  hydro.Gravity = 32.2F;
  hydro.SeedYear = static_cast<std::int16_t>(ToInteger(FormatDate(start, "yyyy")) - 1);
  hydro.TimeStepCount = 2;
  hydro.TimeSteps[1] = {start, kTimeStep};
  hydro.TimeSteps[2] = {end, kTimeStep};
  hydro.PrintStepCount = 2;
  hydro.PrintSteps[1] = {start, kPrintStep};
  hydro.PrintSteps[2] = {end, kPrintStep};
  return hydro;
}

}  // namespace lomaris

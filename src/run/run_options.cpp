#include "run/run_options.h"

#include "core/numbers.h"
#include "core/run_time_error.h"

namespace lomaris {
namespace {

std::string Switch(char name, char letter) {
  return {' ', '-', name, letter};
}

std::string Switch(char name, bool on) {
  return Switch(name, on ? 'Y' : 'N');
}

std::string FileSwitches(const OutputFiles& files) {
  return Switch('M', files.Messages) + Switch('E', files.Errors) + Switch('O', files.Output) +
         Switch('B', files.MassBalance);
}

char SolutionLetter(Transport solution) {
  if (solution == Transport::Upwind) return 'U';
  return solution == Transport::Quickest ? 'Q' : 'H';
}

/// Of the water quality program, behind its linkage file.
std::string QualSwitches(Transport solution, bool dewPoint, const OutputFiles& files) {
  return Switch('S', SolutionLetter(solution)) + Switch('T', dewPoint ? 'D' : 'W') +
         FileSwitches(files);
}

}  // namespace

std::string CommandTail(const HydroRunOptions& options) {
  return Switch('L', options.HydroLink) + Switch('F', options.WaspLinkage ? 'W' : 'R') + " -S" +
         NumberText(options.WaspStep) + Switch('I', options.InitialLevels) +
         FileSwitches(options.Files);
}

std::string CommandTail(const QualRunOptions& options) {
  return Switch('P', options.HydroLink) +
         QualSwitches(options.Solution, options.DewPoint, options.Files);
}

std::string FirstTail(const BothRunOptions& options) {
  return " -LY -FR" + Switch('I', options.InitialLevels) + FileSwitches(options.Files);
}

std::string SecondTail(const BothRunOptions& options) {
  return " -PN" + QualSwitches(options.Solution, options.DewPoint, options.Files);
}

void AskWaspStep(int& step, Ui& ui) {
  const std::string answer =
      ui.AskText({.Prompt = "Enter time step increment for values placed in the WASP linkage file. "
                            "For example, enter 2 to place results from every other time step into "
                            "the linkage file:",
                  .Title = "WASP Linkage File Time Step",
                  .Proposal = NumberText(step)});
  try {
    if (const std::int32_t entered = ToLong(answer); entered > 0) step = entered;
  } catch (const RuntimeError&) {
    return;  // no number, or the question was cancelled
  }
}

}  // namespace lomaris

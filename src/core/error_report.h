#pragma once

#include <string>
#include <string_view>

#include "core/ports/ui.h"
#include "core/program.h"
#include "core/run_time_error.h"

namespace lomaris {

/// The unhandled-error report: joins the text of the failure, puts it on the clipboard and shows
/// it. `kind` is "Form" or "Module", `module` the module's name; `sourceLine` is 0 where no line
/// is known. Returns Abort (3), Retry (4) or Ignore (5).
Answer ReportError(Ui& ui, const RuntimeError& error, std::string_view routine,
                   std::string_view kind, std::string_view module, int sourceLine = 0);

/// How a step under a trap ended.
enum class StepEnd {
  Done,     ///< it ran to its end
  Ignored,  ///< it failed, and the routine goes on with its next step
  Left,     ///< it failed, and the routine is left
};

/// Runs the steps of one routine and turns the answers to a failure's report into: leave the
/// routine, run the step again, go on with the next one.
class Trap {
 public:
  Trap(Ui& ui, std::string routine, std::string kind = "Module", std::string module = "modCommon")
      : ui_(ui), routine_(std::move(routine)), kind_(std::move(kind)), module_(std::move(module)) {}

  template <class Step>
  StepEnd Run(Step&& step) {
    if constexpr (DebugMode) {
      step();
      return StepEnd::Done;
    }
    for (;;) {
      try {
        step();
        return StepEnd::Done;
      } catch (const std::exception&) {
        const Answer answer = Report(CurrentRuntimeError());
        if (answer == Answer::Retry) continue;
        return answer == Answer::Ignore ? StepEnd::Ignored : StepEnd::Left;
      }
    }
  }

  /// Shows the report for a failure that the routine caught itself.
  Answer Report(const RuntimeError& error) {
    return ReportError(ui_, error, routine_, kind_, module_);
  }

 private:
  Ui& ui_;
  std::string routine_;
  std::string kind_;
  std::string module_;
};

}  // namespace lomaris

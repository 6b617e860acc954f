#include "core/error_report.h"

#include <fmt/format.h>

namespace lomaris {

Answer ReportError(Ui& ui, const RuntimeError& error, std::string_view routine,
                   std::string_view kind, std::string_view module, int sourceLine) {
  // The failed routine may have left the hourglass on.
  ui.ResetPointers();

  std::string text =
      fmt::format("Sorry, but an unhandled error has occurred in {}: \r\n\r\nError {} ({})",
                  kApplicationTitle, error.Number(), error.Description());
  if (sourceLine > 0) text += fmt::format(" at line {}", sourceLine);
  text += fmt::format(
      " in procedure \"{}\" of {} \"{}\" (Program version {}).\r\n\r\n"
      "You can click \"Abort\" to cancel the pending operation, \"Retry\" to attempt to execute "
      "the statement again, or \"Ignore\" to skip the offending statement and continue with the "
      "following one. \r\n\r\n"
      "Please email technical support and provide this information (this text has been placed on "
      "the clipboard so you can easily paste it into an email message).",
      routine, kind, module, ProgramVersion());

  ui.SetClipboardText(text);
  return ui.ShowMessage({.Text = text,
                         .Title = "Critical Error",
                         .BoxIcon = Icon::Critical,
                         .BoxButtons = Buttons::AbortRetryIgnore,
                         .DefaultAnswer = Answer::Retry});
}

}  // namespace lomaris

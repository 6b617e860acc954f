#include "run/run_and_wait.h"

#include <optional>

#include "core/files.h"

namespace lomaris {
namespace {

constexpr int kTurn = 50;  // ms

/// What happens last happens once more after the program's end.
void WaitForEnd(ProcessId id, const ModelLink& link, PollTimer& timer) {
  bool active = true;
  while (active) {
    active = link.Programs.IsActive(id);
    link.Screen.DoEvents();
    timer.Turn();
    link.Time.Sleep(kTurn);
  }
}

}  // namespace

RunResult RunAndWait(const StartRequest& request, const ModelLink& link, PollTimer& timer) {
  link.State = ProgressState();
  if (!FindFile(request.Program)) {
    link.Monitor.HideSplash();
    link.Screen.ShowMessage({.Text = "Unable to find file: " + BareName(request.Program),
                             .Title = "Error",
                             .BoxIcon = Icon::Critical});
    return {};
  }
  std::string reason;
  const std::optional<ProcessId> id = link.Programs.Start(request, reason);
  if (!id) return {.How = WaitEnd::NotStarted, .Reason = reason};
  link.State.Process = *id;
  WaitForEnd(*id, link, timer);
  link.Monitor.SetTimeRemaining({});
  return {.How = WaitEnd::Ended, .End = link.Programs.End(*id)};
}

}  // namespace lomaris

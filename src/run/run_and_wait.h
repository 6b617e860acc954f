#pragma once

#include "core/ports/processes.h"
#include "run/model_link.h"
#include "run/poll_timer.h"

namespace lomaris {

/// How `RunAndWait` left.
enum class WaitEnd {
  NoProgram,   ///< there is no such file; the user has been told
  NotStarted,  ///< it did not start; nobody has been told
  Ended,
};

struct RunResult {
  WaitEnd How = WaitEnd::NoProgram;
  ProcessEnd End = {};      ///< of a program that ended
  std::string Reason = {};  ///< of one that did not start
};

/// Runs a model program and returns when it has ended. Meanwhile the event loop turns, and `timer`
/// ticks. There is no time-out: a model may compute for days.
RunResult RunAndWait(const StartRequest& request, const ModelLink& link, PollTimer& timer);

}  // namespace lomaris

#pragma once

#include "core/ports/clock.h"
#include "core/ports/processes.h"
#include "core/ports/ui.h"
#include "model/hydro_input.h"
#include "run/exchange_files.h"
#include "run/monitor_view.h"
#include "run/progress_state.h"

namespace lomaris {

/// What one tick of the link to a running model works on. All of it outlives the run.
struct ModelLink {
  ProgressState& State;
  ModelFile& Model;
  ReplyFile& Reply;
  const HydroInput& Hydro;  ///< the network that the model runs on: it names the rows
  MonitorView& Monitor;
  Ui& Screen;
  Clock& Time;
  Processes& Programs;
};

/// One tick: takes up the model's command, if there is one, shows what it says, asks what it asks,
/// and answers. Never throws: what is not in the file yet, or makes no sense, ends the tick, and
/// the next one looks again.
void PollModel(const ModelLink& link);

/// The command UPDATE: per cent, time left, results. Throws RuntimeError to end the tick.
///
/// The first one sets up the monitor; one that breaks off on the way is begun anew by the next
/// tick, and until it has all it needs it leaves the grid alone. A per cent that has not moved
/// lengthens the interval of the ticks by half.
void TakeUpdate(const ModelLink& link);

}  // namespace lomaris

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "run/programs.h"
#include "run/run_options.h"
#include "run/run_stage.h"
#include "run/run_view.h"

namespace lomaris {

/// The logic of the Run menu and of the options windows: which program is started, what is written
/// for it, and what happens until it has ended. A model runs on the files on disk: neither the
/// project in memory nor a network that is being edited is touched.
///
/// Commands count from this program's folder, and what is started works in its own; the current
/// directory stays what it is, so that names without a directory keep their meaning.
class RunDesk {
 public:
  RunDesk(const RunSurroundings& around, RunView& view) : around_(around), view_(view) {}
  RunDesk(const RunDesk&) = delete;
  RunDesk& operator=(const RunDesk&) = delete;

  /// An item of the Run menu, by its index. Programs of the user are started and left alone; for
  /// the models the options window is shown. While a model runs no other one is offered.
  void RunItem(int index);

  // --- `btnRun` of the options windows. Each returns when the run has ended; one that could not be
  // begun leaves its window open.
  void RunHydro(const HydroRunOptions& options);
  void RunQual(const QualRunOptions& options);
  void RunBoth(const BothRunOptions& options);

  /// False, which has been told: a model is still running. Its monitor is on the screen then, and
  /// the user may have ended it; its run comes to its end when this program waits for it again.
  bool NoneRuns();

  /// The user has chosen what the chart shows: an entry of `cboColumns`, counted from 0.
  void ChooseColumn(int entry);

 private:
  void Run(const char* routine, const char* form, const std::function<void()>& action);

  bool SaveFirst();
  bool MayRunOnSavedFiles();
  std::string ProjectFile() const;
  void Choose(int index);
  std::vector<ProgramCall> CallsFor(int index);
  void LaunchOther(const ProgramCall& call);
  void PrepareModels(int index);
  void TellUnable(const std::string& command);

  void RunOne(const ModelProgram& program, const char* form, const std::string& tail);
  void RunInTurn(const BothRunOptions& options);
  bool Prepared(RunStage& stage, const char* warning);
  void Begin(RunStage& stage);
  void LoadNetwork();
  void TellEnd(RunStage& stage, const std::string& head);
  bool MayGoOn(RunStage& first);
  void ShowLines(RunStage& stage, const std::vector<std::string>& lines);

  RunSurroundings around_;
  RunView& view_;
  std::vector<ProgramCall> calls_;  ///< of the models chosen last
  std::string projectFile_;         ///< full path, of the same moment
  HydroInput hydro_;                ///< the run's own copy of the network
  ProgressState state_;
  double start_ = 0;  ///< s by the clock
  bool running_ = false;
};

}  // namespace lomaris

#pragma once

#include <string>

#include "model/hydro_input.h"
#include "run/exchange_files.h"
#include "run/folder_lock.h"
#include "run/model_link.h"
#include "run/programs.h"
#include "run/run_and_wait.h"
#include "run/run_view.h"

namespace lomaris {

/// One of the model programs.
struct ModelProgram {
  const char* Name;     ///< "TavreskH"
  const char* Picture;  ///< shown while it runs, if there is such a file
};

/// The run of one model program: its exchange files, in the folder of the program, and its monitor.
/// The files are closed with it.
class RunStage {
 public:
  /// The call is an absolute path. All but `program` outlives the stage.
  RunStage(const ModelProgram& program, const ProgramCall& call, const RunSurroundings& around,
           RunView& view, ProgressState& state, const HydroInput& hydro);

  /// Deletes the model's file of an earlier run and opens our own. False: another model works in
  /// that folder, or the file cannot be deleted; nothing else has been done.
  bool Prepare();

  /// Loads the monitor and shows the picture.
  void Open();

  /// Runs the program with a command tail and polls its file until it has ended.
  void Run(const std::string& tail);

  /// Takes up the last command of a program that has ended.
  void PollOnceMore() { PollModel(Link()); }

  /// Closes the exchange files and takes the picture off the screen.
  void Close();
  /// The same, and deletes the files.
  bool CloseAndDelete();

  /// The program ran to its own end, and has made its exchange file.
  bool EndedWell() const;

  /// What is to be told about the end of a program that did not end well; empty for one that did,
  /// and for one whose failure has been told.
  std::string EndLine() const;

  MonitorView& Monitor() { return *monitor_; }

 private:
  ModelLink Link();
  std::string LogName() const;

  ModelProgram program_;
  const ProgramCall& call_;
  const RunSurroundings& around_;
  RunView& view_;
  ProgressState& state_;
  const HydroInput& hydro_;
  MonitorView* monitor_ = nullptr;
  FolderLock lock_;
  ModelFile model_;
  ReplyFile reply_;
  RunResult result_;
  bool fileSeen_ = false;  ///< the program has made its exchange file
};

}  // namespace lomaris

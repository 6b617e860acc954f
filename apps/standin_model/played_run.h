#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ports/clock.h"
#include "core/ports/ui.h"
#include "diary.h"
#include "flood_wave.h"
#include "model_kind.h"
#include "model_side.h"
#include "script.h"
#include "switches.h"

namespace lomaris {

/// One run of a stand-in: 200 steps of a made-up wave, what the script adds, and its results.
class PlayedRun {
 public:
  struct Cast {
    ModelKind Kind;
    const HydroInput& Hydro;
    const Switches& Options;
    const Script& Book;
    Diary& Notes;
    Clock& Time;
    std::string ResultsPath;  ///< of the binary modeling file; empty: none is written
    Ui& Screen;
  };

  /// Throws RuntimeError when nobody listens.
  explicit PlayedRun(const Cast& cast);

  /// Returns the exit code of the program.
  int Play();

 private:
  void PlaySteps();
  bool PlayStep(int step);
  void PlayScript(double percent);
  void PlayAction(const ScriptStep& step);
  void Introduce();
  std::string WriteDown();
  void Say(const std::string& text) { side_.Ask("MESSAGE", {text}); }
  bool IsOver() const { return exitCode_ || side_.Cancelled() || side_.IsAlone(); }

  Cast cast_;
  FloodWave wave_;
  ModelSide side_;
  std::size_t next_ = 0;  ///< step of the script
  int pace_;              ///< ms
  double percent_ = 0;
  std::vector<double> parts_;  ///< of the run, that have been sent; 0 to 1

  // Of the coming update.
  int idle_ = 0;
  Damage damage_;

  std::optional<int> exitCode_;  ///< the script ends the run
};

}  // namespace lomaris

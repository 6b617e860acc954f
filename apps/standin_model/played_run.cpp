#include "played_run.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <fmt/format.h>

#include "core/files.h"
#include "results_file.h"

namespace lomaris {
namespace {

constexpr int kSteps = 200;
constexpr int kStepsBetweenNews = 50;

constexpr int kLeftAlone = 1;  // exit code

}  // namespace

PlayedRun::PlayedRun(const Cast& cast)
    : cast_(cast),
      wave_(cast.Hydro, cast.Kind),
      side_(wave_, cast.Time, cast.Notes),
      pace_(cast.Book.Pace) {}

int PlayedRun::Play() {
  PlaySteps();
  std::string end = "ends at its end";
  if (exitCode_) {
    end = "ends as the script says";
  } else if (side_.IsAlone()) {
    end = "ends: nobody listens any more";
    exitCode_ = kLeftAlone;
  } else if (side_.Cancelled()) {
    end = fmt::format("cancelled at {} per cent", percent_);
    Say(fmt::format("{} winds up: {}.{}", NameOf(cast_.Kind), end, WriteDown()));
  } else {
    Say(fmt::format("The stand-in for {} has come to the end of the wave.{}", NameOf(cast_.Kind),
                    WriteDown()));
  }
  cast_.Notes.Tell(end);
  cast_.Notes.Tell(side_.Account());
  return exitCode_.value_or(0);
}

/// Tells where to find the results; empty when there are none.
std::string PlayedRun::WriteDown() {
  const std::string& path = cast_.ResultsPath;
  if (path.empty() || !WriteResults(path, wave_, parts_, cast_.Screen)) return {};
  return fmt::format(" What it showed is in {}.", BareName(path));
}

void PlayedRun::PlaySteps() {
  int step = 0;
  while (step <= kSteps && PlayStep(step)) ++step;
}

/// False: the run is over.
bool PlayedRun::PlayStep(int step) {
  const double percent = 100.0 * step / kSteps;
  PlayScript(percent);
  if (IsOver()) return false;
  percent_ = percent;
  parts_.push_back(percent / 100);
  side_.Update(percent, std::exchange(damage_, {}));
  const bool isEnd = step == 0 || step == kSteps;
  const int stay = isEnd ? std::max(pace_, cast_.Book.Stay) : pace_;
  if (!side_.Pause(stay)) return false;
  for (int pauses = std::exchange(idle_, 0); pauses > 0; --pauses) {
    if (!side_.Pause(pace_)) return false;
  }
  if (step == 0) {
    Introduce();
  } else if (step % kStepsBetweenNews == 0 && step < kSteps) {
    Say(fmt::format("{}: the made-up crest is at {}.", wave_.DateTime(percent / 100),
                    wave_.CrestAt(percent / 100)));
  }
  return !IsOver();
}

/// By these words scripts/run tells a stand-in from a model program.
void PlayedRun::Introduce() {
  Say(fmt::format("This is a stand-in for {}. It computes no hydraulics and no water quality.",
                  NameOf(cast_.Kind)));
  Say("What it shows is a made-up flood wave over the initial values of the network.");
  for (const std::string& line : cast_.Options.Lines) {
    if (line.starts_with("unknown")) Say(line);
  }
  if (cast_.Options.AsksForLinkage) {
    side_.Ask("OPENFILE", {"Select hydrodynamic linkage file", "lnk", "*.lnk"});
  }
}

void PlayedRun::PlayScript(double percent) {
  const auto& steps = cast_.Book.Steps;
  while (!IsOver() && next_ < steps.size() && steps[next_].Percent <= percent) {
    PlayAction(steps[next_++]);
  }
}

void PlayedRun::PlayAction(const ScriptStep& step) {
  switch (step.What) {
    case Action::Ask:
      side_.Ask(step.Command, step.Texts, step.Number);
      break;
    case Action::Pace:
      pace_ = step.Number.value_or(pace_);
      break;
    case Action::Idle:
      idle_ = step.Number.value_or(0);
      break;
    case Action::Exit:
      exitCode_ = step.Number;
      break;
    case Action::Crash:
      std::abort();
    case Action::Rows:
      damage_.Rows = step.Number;
      break;
    case Action::Cols:
      damage_.Cols = step.Number;
      break;
    case Action::RecLen:
      damage_.RecLen = step.Number;
      break;
    case Action::Cut:
      damage_.Size = step.Number;
      break;
    case Action::Garbage:
      damage_.Garbage = true;
      break;
  }
}

}  // namespace lomaris

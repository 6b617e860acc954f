#include "played_run.h"

#include <cstdlib>
#include <utility>

#include <fmt/format.h>

#include "core/text.h"

namespace lomaris {
namespace {

constexpr int kSteps = 200;
constexpr int kStepsBetweenNews = 50;

/// The first and the last state stay for so many steps, so that they are seen: an update that
/// another command follows at once may never be.
constexpr int kStepsToBeSeen = 10;

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
    Say(fmt::format("{} winds up: {}.", NameOf(cast_.Kind), end));
  }
  cast_.Notes.Tell(end);
  cast_.Notes.Tell(side_.Account());
  return exitCode_.value_or(0);
}

void PlayedRun::PlaySteps() {
  for (int step = 0; step <= kSteps; ++step) {
    if (!PlayStep(step)) return;
  }
  Say(fmt::format("The stand-in for {} has come to the end of the wave.", NameOf(cast_.Kind)));
}

/// False: the run is over.
bool PlayedRun::PlayStep(int step) {
  const double percent = 100.0 * step / kSteps;
  PlayScript(percent);
  if (IsOver()) return false;
  percent_ = percent;
  side_.Update(percent, std::exchange(damage_, {}));
  const int stay = step == 0 || step == kSteps ? kStepsToBeSeen : 1;
  for (int pauses = stay + std::exchange(idle_, 0); pauses > 0; --pauses) {
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

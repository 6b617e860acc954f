#include "run/run_stage.h"

#include <filesystem>
#include <utility>

#include <fmt/format.h>

#include "core/files.h"

namespace fs = std::filesystem;

namespace lomaris {
namespace {

constexpr int kFirstInterval = 100;  // ms

/// False: it is still there.
bool Deleted(const std::string& path) {
  std::error_code failed;
  fs::remove(path, failed);
  return !failed;
}

}  // namespace

RunStage::RunStage(const ModelProgram& program, const ProgramCall& call,
                   const RunSurroundings& around, RunView& view, ProgressState& state,
                   const HydroInput& hydro)
    : program_(program),
      call_(call),
      around_(around),
      view_(view),
      state_(state),
      hydro_(hydro),
      model_(call.Directory + std::string(kModelFileName)),
      reply_(call.Directory + std::string(kReplyFileName)) {}

bool RunStage::Prepare() {
  if (!lock_.Take(call_.Directory) || !Deleted(model_.Path())) return false;
  reply_.Open();
  return true;
}

void RunStage::Open() {
  if (const auto picture = FindFile(call_.Directory + program_.Picture)) view_.ShowSplash(*picture);
  monitor_ = &view_.LoadMonitor(fmt::format("{} Progress", program_.Name));
}

ModelLink RunStage::Link() {
  return {state_,    model_,         reply_,       hydro_,
          *monitor_, around_.Screen, around_.Time, around_.Programs};
}

/// A wish to cancel is heard on the next turn, once; then in the ticks' own time.
void RunStage::Run(const std::string& tail) {
  const ModelLink link = Link();
  const auto interval = [&] { return state_.ResultsReady ? monitor_->Interval() : kFirstInterval; };
  PollTimer timer(
      around_.Time,
      [&] {
        PollModel(link);
        return interval();
      },
      [&, cancelled = false]() mutable {
        const bool before = std::exchange(cancelled, monitor_->CancelRequested());
        return cancelled && !before ? 0 : interval();
      });
  timer.Start(kFirstInterval);
  result_ = RunAndWait({.Program = FindFile(call_.Program).value_or(call_.Program),
                        .Arguments = call_.Arguments + " " + tail,
                        .Directory = call_.Directory,
                        .LogFile = call_.Directory + LogName(),
                        .Style = WindowStyle::Minimised,
                        .Inherited = lock_.Descriptor()},
                       link, timer);
  fileSeen_ = model_.Exists();
}

void RunStage::Close() {
  model_.Close();
  reply_.Close();
  monitor_->HideSplash();
}

bool RunStage::CloseAndDelete() {
  Close();
  const bool deleted = Deleted(model_.Path());
  return Deleted(reply_.Path()) && deleted;
}

std::string RunStage::LogName() const {
  return fmt::format("{}.log", program_.Name);
}

bool RunStage::EndedWell() const {
  return result_.How == WaitEnd::Ended && result_.End.Well() && fileSeen_;
}

std::string RunStage::EndLine() const {
  if (EndedWell() || result_.How == WaitEnd::NoProgram) return {};
  if (result_.How == WaitEnd::NotStarted)
    return fmt::format("{} could not be started: {}.", program_.Name, result_.Reason);
  std::string line = program_.Name;
  if (result_.End.Signal != 0) {
    line += fmt::format(" was ended by signal {}", result_.End.Signal);
  } else {
    line += fmt::format(" ended with exit code {}", result_.End.ExitCode);
  }
  if (!fileSeen_) line += fmt::format(", without ever making {}", kModelFileName);
  return line + fmt::format("; what it printed is in {}.", LogName());
}

}  // namespace lomaris

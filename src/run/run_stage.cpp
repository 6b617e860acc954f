#include "run/run_stage.h"

#include <filesystem>

#include <fmt/format.h>

#include "core/files.h"

namespace fs = std::filesystem;

namespace lomaris {
namespace {

constexpr int kFirstInterval = 100;  // ms

std::string InCurrentDirectory(std::string_view name) {
  return AbsolutePath(std::string(name));
}

/// False: it is still there.
bool Deleted(const std::string& path) {
  std::error_code failed;
  fs::remove(path, failed);
  return !failed;
}

}  // namespace

RunStage::RunStage(const ModelProgram& program, const RunSurroundings& around, RunView& view,
                   ProgressState& state, const HydroInput& hydro)
    : program_(program),
      around_(around),
      view_(view),
      state_(state),
      hydro_(hydro),
      model_(InCurrentDirectory(kModelFileName)),
      reply_(InCurrentDirectory(kReplyFileName)) {}

bool RunStage::Prepare() {
  if (!Deleted(model_.Path())) return false;
  reply_.Open();
  return true;
}

void RunStage::Open() {
  if (const auto picture = FindFile(program_.Picture)) view_.ShowSplash(AbsolutePath(*picture));
  monitor_ = &view_.LoadMonitor(fmt::format("{} Progress", program_.Name));
}

ModelLink RunStage::Link() {
  return {state_,    model_,         reply_,       hydro_,
          *monitor_, around_.Screen, around_.Time, around_.Programs};
}

void RunStage::Run(const ProgramCall& call, const std::string& tail) {
  const ModelLink link = Link();
  PollTimer timer(around_.Time, [&] {
    PollModel(link);
    return state_.ResultsReady ? monitor_->Interval() : 0;
  });
  timer.Start(kFirstInterval);
  result_ = RunAndWait({.Program = FindFile(call.Program).value_or(call.Program),
                        .Arguments = call.Arguments + " " + tail,
                        .Directory = call.Directory,
                        .LogFile = InCurrentDirectory(LogName()),
                        .Style = WindowStyle::Minimised},
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

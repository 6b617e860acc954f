#include "run/run_desk.h"

#include <filesystem>
#include <utility>

#include <fmt/format.h>

#include "core/error_report.h"
#include "core/files.h"
#include "core/raised_flag.h"
#include "core/run_time_error.h"
#include "model/file_names.h"
#include "model/hnp_file.h"
#include "model/prj_file.h"
#include "run/duration.h"
#include "run/kept_directory.h"

namespace fs = std::filesystem;

namespace lomaris {
namespace {

constexpr ModelProgram kHydroModel{"TavreskH", "veskh.bmp"};
constexpr ModelProgram kQualModel{"TavreskQ", "veskq.bmp"};

constexpr const char* kOneRunning =
    "Unable to initialize, please make sure that VeskH is not already running.";
constexpr const char* kBothRunning =
    "Unable to initialize, please make sure that Tavresk is not already running.";

bool MovedTo(const std::string& folder) {
  std::error_code failed;
  fs::current_path(folder, failed);
  return !failed;
}

/// The programs of a command, in their order. Names count from the current directory.
std::vector<ProgramCall> CallsOf(std::string_view command, int index) {
  const std::size_t middle =
      index == kRunBoth ? command.find(kCommandSeparator) : std::string_view::npos;
  std::vector<ProgramCall> calls = {ParseCommand(command.substr(0, middle))};
  if (middle != std::string_view::npos) calls.push_back(ParseCommand(command.substr(middle + 1)));
  return calls;
}

}  // namespace

void RunDesk::Run(const char* routine, const char* form, const std::function<void()>& action) {
  Trap(around_.Screen, routine, "Form", form).Run(action);
}

// --- The Run menu

/// False: the user wanted the changes saved, and they are not.
bool RunDesk::SaveFirst() {
  if (!around_.Project.Dirty) return true;
  const Answer answer = around_.Screen.ShowMessage({.Text = "Save changes to Project?",
                                                    .Title = "Lomaris",
                                                    .BoxIcon = Icon::Question,
                                                    .BoxButtons = Buttons::YesNoCancel});
  return answer != Answer::Yes || view_.SaveProject();
}

/// A model reads files, not what is being edited: results of an earlier state would not be told
/// from those of this one.
bool RunDesk::MayRunOnSavedFiles() {
  const std::vector<std::string> unsaved = around_.Windows.UnsavedFiles();
  if (unsaved.empty()) return true;
  return around_.Screen.ShowMessage(
             {.Text = fmt::format("There are unsaved changes to:\r\n\r\n{}\r\n\r\nThe run uses "
                                  "the files as they were last saved, without these changes.",
                                  fmt::join(unsaved, "\r\n")),
              .BoxIcon = Icon::Warning,
              .BoxButtons = Buttons::OkCancel}) == Answer::Ok;
}

std::string RunDesk::ProjectFile() const {
  const std::string& name = around_.Project.FileName;
  return name.empty() ? name : AbsolutePath(FindFile(name).value_or(name));
}

void RunDesk::RunItem(int index) {
  Run("mnuRunItem_Click", "frmProject", [&] { Choose(index); });
}

bool RunDesk::NoneRuns() {
  if (!running_) return true;
  view_.ShowMonitor();
  const Answer answer = around_.Screen.ShowMessage(
      {.Text = "A model is still running. Wait for its end, or cancel it in the window that shows "
               "its progress.\r\n\r\nDo you want to end it by force? Its files may be left "
               "incomplete.",
       .BoxIcon = Icon::Warning,
       .BoxButtons = Buttons::YesNo,
       .DefaultAnswer = Answer::No});
  if (answer == Answer::Yes) around_.Programs.Stop(state_.Process);
  return false;
}

void RunDesk::Choose(int index) {
  if (index <= kRunBoth && !NoneRuns()) return;
  if (!SaveFirst()) return;
  std::vector<ProgramCall> calls = CallsFor(index);
  if (calls.empty()) return;
  view_.SaveForm();
  if (index > kRunBoth) {
    LaunchOther(calls.front());  // perhaps while a model runs, whose calls stay
    return;
  }
  if (!MayRunOnSavedFiles()) return;
  calls_ = std::move(calls);
  projectFile_ = ProjectFile();
  PrepareModels(index);
}

/// The programs of a menu item; none when there is no folder for one, which has been told.
std::vector<ProgramCall> RunDesk::CallsFor(int index) {
  const KeptDirectory users;
  const std::string command = CommandFor(index, around_.Store);
  if (!MovedTo(around_.ProgramFolder)) {
    throw RuntimeError(ErrorNumber::PathNotFound, around_.ProgramFolder);
  }
  // A drive letter in the command means nothing here: this platform has one tree of directories.
  if (EndOfProgram(command) == 0) {
    around_.Screen.ShowMessage({.Text = "Invalid filename: " + command});
    return {};
  }
  std::vector<ProgramCall> calls = CallsOf(command, index);
  for (const ProgramCall& call : calls) {
    if (FolderExists(call.Directory)) continue;
    TellUnable(call.Text);
    return {};
  }
  return calls;
}

void RunDesk::TellUnable(const std::string& command) {
  around_.Screen.ShowMessage(
      {.Text = fmt::format("Unable to execute specified program:\r\n\r\n{}\r\n\r\n"
                           "Please check preferences.",
                           command),
       .Title = "Error",
       .BoxIcon = Icon::Critical});
}

/// A bare name that lies nowhere here may be one that the system knows.
void RunDesk::LaunchOther(const ProgramCall& call) {
  const std::string program =
      FindFile(call.Program).value_or(call.IsBareName ? BareName(call.Program) : call.Program);
  const bool started = around_.Programs.Launch(
      {.Program = program, .Arguments = call.Arguments, .Directory = call.Directory});
  if (!started) TellUnable(call.Text);
}

void RunDesk::PrepareModels(int index) {
  const std::string& directory = calls_.front().Directory;
  if (!IsWritable(directory)) {
    around_.Screen.ShowMessage(
        {.Text =
             fmt::format("Unable to run a model: nothing can be written to the directory\r\n\r\n"
                         "{}\r\n\r\nThe model and this program exchange their files there.",
                         directory),
         .Title = "Error",
         .BoxIcon = Icon::Critical});
    return;
  }
  WriteControlFile(directory, projectFile_);
  view_.ShowOptions(static_cast<OptionsWindow>(index));
}

// --- The options windows

void RunDesk::RunHydro(const HydroRunOptions& options) {
  RunOne(kHydroModel, "frmOptionsH", CommandTail(options));
}

void RunDesk::RunQual(const QualRunOptions& options) {
  RunOne(kQualModel, "frmOptionsQ", CommandTail(options));
}

void RunDesk::RunBoth(const BothRunOptions& options) {
  if (running_ || calls_.size() < 2) return;
  const RaisedFlag running(running_);
  Run("btnRun_Click", "frmOptions", [&] { RunInTurn(options); });
}

void RunDesk::ChooseColumn(int entry) {
  state_.ChartColumn = entry + 1;
  state_.RescaleChart = true;
}

bool RunDesk::Prepared(RunStage& stage, const char* warning) {
  if (stage.Prepare()) return true;
  around_.Screen.ShowMessage({.Text = warning, .Title = "Warning"});
  return false;
}

void RunDesk::Begin(RunStage& stage) {
  view_.HideOptions();
  start_ = around_.Time.Seconds();
  LoadNetwork();  // its boxes are not to stand behind the picture
  stage.Open();
}

/// The network on disk names the rows of the results. Neither the project nor a network that is
/// being edited hears of this.
void RunDesk::LoadNetwork() {
  ProjectData project = around_.Project;
  if (project.Dirty) LoadPRJFile(project, around_.Screen, projectFile_);  // what the model reads
  project.FileName = projectFile_;
  hydro_ = HydroInput();
  if (!NamesAFile(project.HydroFile)) return;
  LoadHNPFile(hydro_, project, around_.Screen, project.HydroFile);
}

void RunDesk::RunOne(const ModelProgram& program, const char* form, const std::string& tail) {
  if (running_ || calls_.empty()) return;
  const RaisedFlag running(running_);
  Run("btnRun_Click", form, [&] {
    RunStage stage(program, calls_.front(), around_, view_, state_, hydro_);
    if (!Prepared(stage, kOneRunning)) return;
    Begin(stage);
    stage.Run(tail);
    stage.CloseAndDelete();
    TellEnd(stage, std::string(program.Name) + " has");
  });
}

void RunDesk::RunInTurn(const BothRunOptions& options) {
  view_.UnloadMonitor();
  std::string firstLine;
  {
    RunStage first(kHydroModel, calls_[0], around_, view_, state_, hydro_);
    if (!Prepared(first, kBothRunning)) return;
    Begin(first);
    first.Run(FirstTail(options));
    first.PollOnceMore();
    view_.OfferClose();
    firstLine = first.EndLine();
    if (state_.Abort) {
      ShowLines(first, {firstLine});
      return;
    }
    if (!MayGoOn(first)) {
      first.CloseAndDelete();
      TellEnd(first, "TavreskH has");
      return;
    }
    first.CloseAndDelete();  // where that fails the next one cannot begin, and tells
    view_.UnloadMonitor();
  }
  RunStage second(kQualModel, calls_[1], around_, view_, state_, hydro_);
  if (!Prepared(second, kBothRunning)) return;
  second.Open();
  if (!firstLine.empty()) second.Monitor().AddMessage(firstLine);
  second.Run(SecondTail(options));
  second.PollOnceMore();
  second.CloseAndDelete();
  TellEnd(second, "TavreskH and Q have");
}

/// The second model reads what the first has written.
bool RunDesk::MayGoOn(RunStage& first) {
  if (first.EndedWell() && !first.Monitor().CancelRequested()) return true;
  first.Monitor().HideSplash();
  return around_.Screen.ShowMessage({.Text = "TavreskH did not run to its end. Do you want to run "
                                             "TavreskQ all the same?",
                                     .BoxIcon = Icon::Question,
                                     .BoxButtons = Buttons::YesNo,
                                     .DefaultAnswer = Answer::No}) == Answer::Yes;
}

void RunDesk::TellEnd(RunStage& stage, const std::string& head) {
  ShowLines(stage, {fmt::format("{} completed execution, taking a total of {} to run.", head,
                                DurationText(around_.Time.Seconds() - start_)),
                    stage.EndLine()});
  view_.OfferClose();
  view_.UnloadOptions();
}

/// They are seen, though the program may never have got so far as to show its monitor.
void RunDesk::ShowLines(RunStage& stage, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    if (!line.empty()) stage.Monitor().AddMessage(line);
  }
  if (!std::exchange(state_.WindowShown, true)) stage.Monitor().ShowWindow();
}

}  // namespace lomaris

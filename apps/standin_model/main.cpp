// The stand-in for a model program: reads what a model reads, plays the model's side of a run, and
// computes nothing.

#include <iostream>
#include <span>
#include <string>

#include <fmt/format.h>

#include "console_ui.h"
#include "core/files.h"
#include "core/reader_state.h"
#include "core/run_time_error.h"
#include "core/steady_clock.h"
#include "core/text.h"
#include "diary.h"
#include "model/file_names.h"
#include "model/hnp_file.h"
#include "model/prj_file.h"
#include "model_kind.h"
#include "played_run.h"
#include "run/programs.h"
#include "script.h"
#include "switches.h"

namespace lomaris {
namespace {

constexpr ModelKind kKind = ModelKind::STANDIN_FOR;

constexpr int kCannotRun = 2;  // exit code

/// Why there is no run.
struct Refusal {
  std::string Why;
};

ProjectData ReadProject(Ui& ui) {
  ReaderState control(ui, kControlFileName);
  std::string name;
  control.ReadLine(name);
  ProjectData project;
  if (name.empty()) throw Refusal{fmt::format("{} names no project", kControlFileName)};
  if (!LoadPRJFile(project, ui, name)) throw Refusal{"no project in " + name};
  return project;
}

/// Both models need the network.
HydroInput ReadNetwork(ProjectData& project, Ui& ui) {
  HydroInput hydro;
  if (NamesAFile(project.HydroFile)) LoadHNPFile(hydro, project, ui, project.HydroFile);
  if (!hydro.HydroLoaded || hydro.BranchCount == 0) {
    throw Refusal{"the project has no network to run on: " + project.HydroFile};
  }
  if (hydro.EndDate <= hydro.StartDate) throw Refusal{"the simulation ends before it starts"};
  return hydro;
}

/// `name` with "out" in place of the type, wherever that stands: so Lomaris looks for it. Case does
/// not matter to either.
std::string WithOutForType(std::string name, std::string_view type) {
  const std::string upper = UpperCase(name);
  for (std::size_t place = 0; (place = upper.find(type, place)) != std::string::npos;
       place += type.size()) {
    name.replace(place, type.size(), "out");
  }
  return name;
}

/// Where Lomaris looks for it, or at least beside the input file; where the project names none,
/// beside the project. Never a file that is read.
std::string OutputPath(const ProjectData& project) {
  const std::string& input = InputFileOf(kKind, project);
  std::string name = NamesAFile(input) ? WithOutForType(input, InputTypeOf(kKind))
                                       : std::string(NameOf(kKind)) + ".out";
  if (name == input) name += ".out";
  const std::string path = TargetPath(name, project.FileName);
  if (FolderExists(path)) return path;
  return TargetPath(FolderOf(input) + BareName(name), project.FileName);
}

/// Beside the output file, "bmd" in place of its "out".
std::string ResultsPath(std::string output) {
  return output.replace(output.size() - 3, 3, "bmd");
}

void TellInput(Diary& diary, const ProjectData& project, const HydroInput& hydro,
               const Switches& switches) {
  diary.Tell(
      fmt::format("Output of a stand-in for {}. It computes no hydraulics and no water quality.",
                  NameOf(kKind)));
  diary.Tell("project " + project.FileName);
  diary.Tell(fmt::format("network {}: {} branches, {} cross sections", hydro.FileName,
                         hydro.BranchCount, hydro.XSectCount));
  for (const std::string& line : switches.Lines) diary.Tell(line);
}

int Run(std::span<const char* const> words) {
  ConsoleUi ui;
  ProjectData project = ReadProject(ui);
  const HydroInput hydro = ReadNetwork(project, ui);
  const Switches switches = ReadSwitches(kKind, words);
  const Script script = ReadScript(kKind);
  Diary diary;
  const std::string output = OutputPath(project);
  if (switches.WritesOut) diary.Open(output);
  TellInput(diary, project, hydro, switches);
  if (script.Silent) {
    diary.Tell("ends before it began, as the script says");
    return 0;
  }
  SteadyClock clock;
  return PlayedRun({.Kind = kKind,
                    .Hydro = hydro,
                    .Options = switches,
                    .Book = script,
                    .Notes = diary,
                    .Time = clock,
                    .ResultsPath = switches.WritesOut ? ResultsPath(output) : std::string(),
                    .Screen = ui})
      .Play();
}

}  // namespace
}  // namespace lomaris

int main(int argc, char** argv) {
  try {
    const std::span<const char* const> words(argv, static_cast<std::size_t>(argc));
    return lomaris::Run(words.empty() ? words : words.subspan(1));
  } catch (const lomaris::Refusal& refusal) {
    std::cout << "No run: " << refusal.Why << std::endl;
    return lomaris::kCannotRun;
  } catch (...) {
    const lomaris::RuntimeError error = lomaris::CurrentRuntimeError();
    std::cout << error.Description() << std::endl;
    return lomaris::kCannotRun;
  }
}

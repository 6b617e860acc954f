#include "run/programs.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "core/files.h"
#include "core/program.h"
#include "core/run_time_error.h"
#include "core/text.h"

namespace fs = std::filesystem;

namespace lomaris {
namespace {

constexpr std::string_view kProgramEnding = ".EXE";

struct ProgramEntry {
  int Index;
  const char* Command;
  const char* DebugCommand;  ///< while no routine traps its failures
  const char* Key;           ///< of the user's own command; none: it is fixed
};

constexpr std::array kPrograms = {
    ProgramEntry{kRunHydro, "TavreskH.exe", "../standin/TavreskH.exe", nullptr},
    ProgramEntry{kRunQual, "TavreskQ.exe", "../standin/TavreskQ.exe", nullptr},
    ProgramEntry{kRunBoth, "TavreskH.exe;TavreskQ.exe",
                 "../standin/TavreskH.exe;../standin/TavreskQ.exe", nullptr},
    ProgramEntry{kRunPostProcessor, kPostProcessorCommand, "../standin/Graph.exe",
                 kPostProcessorKey},
    ProgramEntry{kRunDataStore, kDataStoreCommand, "../standin/Korb.exe", kDataStoreKey},
};

std::string WithoutQuotes(std::string_view text) {
  return ReplaceAll(text, "\"", "");
}

}  // namespace

std::string CommandFor(int index, const Settings& settings) {
  const auto entry = std::find_if(kPrograms.begin(), kPrograms.end(),
                                  [&](const ProgramEntry& e) { return e.Index == index; });
  if (entry == kPrograms.end()) return {};
  const char* command = DebugMode ? entry->DebugCommand : entry->Command;
  return entry->Key ? settings.Value(kOtherPrograms, entry->Key, command) : command;
}

std::size_t EndOfProgram(std::string_view command) {
  const std::size_t start = UpperCase(command).find(kProgramEnding);
  return start == std::string::npos ? 0 : start + kProgramEnding.size();
}

ProgramCall ParseCommand(std::string_view command) {
  ProgramCall call;
  call.Text = command;
  call.IsBareName = FolderOf(command.substr(0, EndOfProgram(command))).empty();
  if (!call.IsBareName) call.Text = WithoutQuotes(command);
  const std::size_t end = EndOfProgram(call.Text);
  call.Program = WithoutQuotes(call.Text.substr(0, end));
  call.Arguments = call.Text.substr(end);
  // A quote that closed behind the program has nothing left to close.
  if (call.Arguments.starts_with('"')) call.Arguments.erase(0, 1);
  call.Program = AbsolutePath(ReplaceAll(call.Program, "\\", "/"));
  call.Directory = FolderOf(call.Program);
  return call;
}

std::string AbsolutePath(const std::string& path) {
  std::error_code failed;
  const fs::path absolute = fs::absolute(path, failed);
  return failed ? path : absolute.lexically_normal().string();
}

bool IsWritable(const std::string& folder) {
  Disk disk;
  try {
    disk.Remove(disk.WriteBeside((fs::path(folder) / kTempPrefix).string(), {}));
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

void WriteControlFile(const std::string& folder, const std::string& projectFile) {
  const std::string path = folder + kControlFileName;
  Disk().Remove(path);
  WriteLargeFile(path, [&](const Sink& write) {
    write(projectFile);
    write(kLineBreak);
  });
}

}  // namespace lomaris

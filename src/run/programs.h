#pragma once

#include <string>
#include <string_view>

#include "core/ports/processes.h"
#include "core/ports/settings.h"
#include "core/ports/ui.h"

namespace lomaris {

/// The programs of the Run menu, by the index of their `mnuRunItem`.
enum RunItem : int {
  kRunHydro = 0,
  kRunQual = 1,
  kRunBoth = 2,
  kRunPostProcessor = 4,
  kRunDataStore = 6,
};

/// Section of the settings with the commands of the user's own programs, under these keys.
inline constexpr const char* kOtherPrograms = "Other Programs";
inline constexpr const char* kPostProcessorKey = "Post Processor";
inline constexpr const char* kDataStoreKey = "KORB";

/// What these start where the user has set nothing.
inline constexpr const char* kPostProcessorCommand = "Graph.exe";
inline constexpr const char* kDataStoreCommand =
    "\"C:\\PDOXWIN\\PDOXRUN.EXE\" -w \"C:\\KORB\" -o \"C:\\KORB\\KORB.cfg\" korb.sdl";

/// Between the two programs of the command of `kRunBoth`.
inline constexpr char kCommandSeparator = ';';

/// The file that tells a model which project it runs on.
inline constexpr const char* kControlFileName = "run.ctl";

/// The command of a menu item; empty for an index without one.
std::string CommandFor(int index, const Settings& settings);

/// Where the program of a command lies: the place behind its first ".exe", in any case; 0 when it
/// names none.
std::size_t EndOfProgram(std::string_view command);

/// A command with a program in it, taken apart. A program named with its folder, whose command has
/// lost its quotes, may hold blanks.
struct ProgramCall {
  std::string Text;       ///< the command: without quotes when the program is named with its folder
  std::string Program;    ///< path
  std::string Directory;  ///< the program's folder; the current directory for a bare name
  std::string Arguments;
  bool IsBareName = false;  ///< named without a folder
};

/// Takes a command apart; a name that is not absolute is counted from the current directory.
ProgramCall ParseCommand(std::string_view command);

/// A path counted from the current directory as one that holds wherever that moves.
std::string AbsolutePath(const std::string& path);

/// Whether files can be made in a folder.
bool IsWritable(const std::string& folder);

/// Writes `run.ctl` anew into a folder, whose name ends in a slash: one line, the full path of the
/// project file, in its own bytes. Throws RuntimeError when that cannot be done.
void WriteControlFile(const std::string& folder, const std::string& projectFile);

}  // namespace lomaris

#include "model/input_file.h"

#include <fmt/format.h>

#include "core/error_report.h"
#include "core/files.h"

namespace lomaris {
namespace {

void TellInputAborted(const RuntimeError& error, const std::string& name,
                      const std::optional<ReaderState>& in, Ui& ui) {
  ui.ShowMessage({.Text = InputAborted(error, in ? in->LineNumber : 1, name,
                                       in ? in->CurrentLine : std::string_view()),
                  .BoxIcon = Icon::Critical});
}

}  // namespace

std::string InputAborted(const RuntimeError& error, std::int32_t line, std::string_view name,
                         std::string_view lastLine) {
  return fmt::format(
      "Following error occurred on line {} of file {}\r\n\r\n{}\r\n\r\nLast line "
      "read was: {}\r\n\r\nInput aborted.",
      line, name, error.Description(), Shown(lastLine));
}

std::optional<std::string> FindInputFile(std::string_view kind, const std::string& name,
                                         const std::string& projectFile, Ui& ui) {
  std::optional<std::string> path = FindFile(name, projectFile);
  if (!path) {
    ui.ShowMessage({.Text = fmt::format("{} {} not found; it will now be created.", kind, name),
                    .Title = "Error"});
  }
  return path;
}

bool ReadInputFile(const std::string& path, const std::string& name, Ui& ui,
                   const std::function<bool(ReaderState&)>& read) {
  std::optional<ReaderState> in;
  try {
    const BusyPointer busy(ui);
    in.emplace(ui, path);
    return read(*in);
  } catch (const std::exception&) {
    if constexpr (DebugMode) throw;
    TellInputAborted(CurrentRuntimeError(), name, in, ui);
    return false;
  }
}

bool WriteInputFile(const std::string& name, const std::string& projectFile,
                    const std::string& routine, Ui& ui,
                    const std::function<std::optional<std::string>()>& format) {
  Trap trap(ui, routine);
  bool written = false;
  trap.Run([&] {
    std::optional<std::string> text = format();
    if (!text) return;
    const BusyPointer busy(ui);
    WriteWholeFile(TargetPath(name, projectFile), *std::move(text), Backup::OneGeneration);
    written = true;
  });
  return written;
}

}  // namespace lomaris

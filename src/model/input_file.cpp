#include "model/input_file.h"

#include <fmt/format.h>

#include "core/error_report.h"

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

std::string ReadName(ReaderState& in) {
  return TrimField(in.ReadRawLine());
}

RuntimeError WithMore(const RuntimeError& error, std::string_view more) {
  const auto number = static_cast<ErrorNumber>(error.Number());
  const std::string text = error.Description();
  const std::size_t detail = RuntimeError(number, " ").Description().size() - 1;
  if (text.size() <= detail) return RuntimeError(number, more);
  return RuntimeError(number, text.substr(detail).append("\r\n\r\n").append(more));
}

void TellNamesUnreadable(const ReaderState& in, Ui& ui) {
  ui.ShowMessage({.Text = "The names of other files at the end of file " + in.FileName +
                          " cannot be read from line " + NumberText(in.LineNumber) +
                          " on; a save writes those that could be read.",
                  .Title = "Warning",
                  .BoxIcon = Icon::Warning});
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

bool MayOverwrite(const std::string& name, const FileStamp& known, const std::string& projectFile,
                  Ui& ui) {
  const FileStamp now = StampOf(name, projectFile);
  if (now == FileStamp() || now == known) return true;
  return ui.ShowMessage({.Text = "File " + name +
                                 " has been changed since it was opened here, by another window or "
                                 "another program.\r\n\r\nDo you want to replace what it says "
                                 "now?",
                         .Title = "Warning",
                         .BoxIcon = Icon::Warning,
                         .BoxButtons = Buttons::YesNo,
                         .DefaultAnswer = Answer::No}) == Answer::Yes;
}

}  // namespace lomaris

#include "windows/core/qt_processes.h"

#include <QFile>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

/// A window style is nothing that this platform hands to a program.
void Prepare(QProcess& process, const StartRequest& request) {
  process.setProgram(ToQt(request.Program));
  process.setArguments(QProcess::splitCommand(ToQt(request.Arguments)));
  process.setWorkingDirectory(ToQt(request.Directory));
  process.setStandardInputFile(QProcess::nullDevice());
  process.setProcessChannelMode(QProcess::MergedChannels);
  if (request.LogFile.empty()) {
    process.setStandardOutputFile(QProcess::nullDevice());
    return;
  }
  const QString log = ToQt(request.LogFile);
  QFile::remove(log);  // also one that could not be written over
  process.setStandardOutputFile(log, QProcess::Truncate);
}

}  // namespace

/// A QProcess kills its program when it goes; one whose program still works is left behind.
QtProcesses::~QtProcesses() {
  for (auto& [id, process] : watched_) {
    if (IsActive(id)) static_cast<void>(process.release());
  }
}

bool QtProcesses::Launch(const StartRequest& request) {
  QProcess process;
  Prepare(process, request);
  return process.startDetached();
}

std::optional<ProcessId> QtProcesses::Start(const StartRequest& request, std::string& reason) {
  auto process = std::make_unique<QProcess>();
  Prepare(*process, request);
  // A Ctrl+C in the terminal of this program is not meant for a model that has worked for hours.
  process->setChildProcessModifier([inherited = request.Inherited] {
    ::setsid();
    if (inherited >= 0) ::fcntl(inherited, F_SETFD, 0);
  });
  process->start();
  if (!process->waitForStarted()) {
    reason = FromQt(process->errorString());
    return std::nullopt;
  }
  const ProcessId id = process->processId();
  watched_[id] = std::move(process);
  return id;
}

void QtProcesses::Stop(ProcessId id) {
  if (const auto found = watched_.find(id); found != watched_.end()) found->second->kill();
}

/// Asks the system itself, as whoever waits may never get back to the event loop in between.
bool QtProcesses::IsActive(ProcessId id) {
  const auto found = watched_.find(id);
  if (found == watched_.end()) return false;
  QProcess& process = *found->second;
  if (process.state() != QProcess::NotRunning) process.waitForFinished(0);
  return process.state() != QProcess::NotRunning;
}

ProcessEnd QtProcesses::End(ProcessId id) {
  const auto found = watched_.find(id);
  if (found == watched_.end()) return {};
  const QProcess& process = *found->second;
  // Of a program that was ended by a signal, the code is the number of that signal.
  const bool byItself = process.exitStatus() == QProcess::NormalExit;
  const ProcessEnd end{.ExitCode = byItself ? process.exitCode() : 0,
                       .Signal = byItself ? 0 : process.exitCode()};
  watched_.erase(found);
  return end;
}

}  // namespace lomaris

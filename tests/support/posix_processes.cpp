#include "support/posix_processes.h"

#include <cstring>
#include <sstream>
#include <vector>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lomaris {

/// Arguments without quotes and blanks in them, as those of the models are.
std::optional<ProcessId> PosixProcesses::Start(const StartRequest& request, std::string& reason) {
  std::vector<std::string> words = {request.Program};
  std::istringstream arguments(request.Arguments);
  for (std::string word; arguments >> word;) words.push_back(word);
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  const std::string log = request.LogFile.empty() ? "/dev/null" : request.LogFile;
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, log.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0666);
  ::posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
  if (request.Inherited >= 0) {
    ::posix_spawn_file_actions_adddup2(&actions, request.Inherited, request.Inherited);
  }
  ::posix_spawn_file_actions_addchdir_np(&actions, request.Directory.c_str());
  pid_t pid = 0;
  const int failed =
      ::posix_spawn(&pid, request.Program.c_str(), &actions, nullptr, argv.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) {
    reason = std::strerror(failed);
    return std::nullopt;
  }
  started_[pid];
  return pid;
}

bool PosixProcesses::IsActive(ProcessId id) {
  std::optional<ProcessEnd>& end = started_.at(id);
  int status = 0;
  if (!end && ::waitpid(static_cast<pid_t>(id), &status, WNOHANG) != 0) {
    end =
        WIFSIGNALED(status) ? ProcessEnd{0, WTERMSIG(status)} : ProcessEnd{WEXITSTATUS(status), 0};
  }
  return !end;
}

void PosixProcesses::Stop(ProcessId id) {
  if (started_.contains(id) && !started_.at(id)) ::kill(static_cast<pid_t>(id), SIGKILL);
}

ProcessEnd PosixProcesses::End(ProcessId id) {
  const ProcessEnd end = started_.at(id).value();
  started_.erase(id);
  return end;
}

void PosixProcesses::KillAll() {
  for (auto& [id, end] : started_) {
    if (end) continue;
    ::kill(static_cast<pid_t>(id), SIGKILL);
    int status = 0;
    ::waitpid(static_cast<pid_t>(id), &status, 0);
    end = ProcessEnd{0, SIGKILL};
  }
}

}  // namespace lomaris

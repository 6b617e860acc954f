#pragma once

#include <map>

#include "core/ports/processes.h"

namespace lomaris {

/// Real programs, without a toolkit. Those that still run when this goes are killed.
class PosixProcesses : public Processes {
 public:
  PosixProcesses() = default;
  ~PosixProcesses() override { KillAll(); }
  PosixProcesses(const PosixProcesses&) = delete;
  PosixProcesses& operator=(const PosixProcesses&) = delete;

  bool Launch(const StartRequest& request) override {
    std::string reason;
    return Start(request, reason).has_value();
  }
  std::optional<ProcessId> Start(const StartRequest& request, std::string& reason) override;
  void Stop(ProcessId id) override;
  bool IsActive(ProcessId id) override;
  ProcessEnd End(ProcessId id) override;
  void SetProcessWindowText(ProcessId, const std::string&) override {}

  void KillAll();

 private:
  std::map<ProcessId, std::optional<ProcessEnd>> started_;  ///< without an end: active
};

}  // namespace lomaris

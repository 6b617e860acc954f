#pragma once

#include <QProcess>
#include <map>
#include <memory>

#include "core/ports/processes.h"

namespace lomaris {

/// Other programs, started without a terminal: they read nothing, and what they print goes where
/// the request says. A watched program that is still active when this goes is left running.
class QtProcesses : public Processes {
 public:
  QtProcesses() = default;
  ~QtProcesses() override;
  QtProcesses(const QtProcesses&) = delete;
  QtProcesses& operator=(const QtProcesses&) = delete;

  bool Launch(const StartRequest& request) override;
  std::optional<ProcessId> Start(const StartRequest& request, std::string& reason) override;
  void Stop(ProcessId id) override;
  bool IsActive(ProcessId id) override;
  ProcessEnd End(ProcessId id) override;

  /// Nothing here: the programs have no terminal whose title could be set, and windows of other
  /// programs are their own affair.
  void SetProcessWindowText(ProcessId, const std::string&) override {}

 private:
  std::map<ProcessId, std::unique_ptr<QProcess>> watched_;
};

}  // namespace lomaris

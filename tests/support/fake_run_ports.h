#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/ports/clock.h"
#include "core/ports/processes.h"

namespace lomaris {

/// A clock that the test moves, and that moves by what is slept.
class FakeClock : public Clock {
 public:
  double Time = 1000;

  double Seconds() override { return Time; }
  void Sleep(int milliseconds) override { Time += milliseconds / 1000.0; }
};

/// A program that does in each turn of the one who waits what the test says, until it ends.
class FakeProcesses : public Processes {
 public:
  bool LetStart = true;
  std::function<bool(int turn)> OnTurn = [](int) { return false; };  ///< false: it has ended
  ProcessEnd HowItEnds;

  std::vector<StartRequest> Launched;
  std::vector<StartRequest> Started;
  std::vector<std::string> Titles;

  bool Launch(const StartRequest& request) override {
    Launched.push_back(request);
    return LetStart;
  }
  std::optional<ProcessId> Start(const StartRequest& request, std::string& reason) override {
    Started.push_back(request);
    turn_ = 0;
    stopped_ = false;
    reason = "Permission denied";
    return LetStart ? std::optional<ProcessId>(kId) : std::nullopt;
  }
  void Stop(ProcessId id) override { stopped_ = id == kId; }
  bool IsActive(ProcessId id) override { return id == kId && !stopped_ && OnTurn(turn_++); }
  ProcessEnd End(ProcessId) override { return stopped_ ? ProcessEnd{0, 9} : HowItEnds; }
  void SetProcessWindowText(ProcessId id, const std::string& text) override {
    if (id == kId) Titles.push_back(text);
  }

 private:
  static constexpr ProcessId kId = 4711;
  int turn_ = 0;
  bool stopped_ = false;
};

}  // namespace lomaris

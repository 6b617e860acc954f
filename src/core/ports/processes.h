#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace lomaris {

enum class WindowStyle {
  Normal,
  Minimised,  ///< and without the focus
};

/// A program that is to be started.
struct StartRequest {
  std::string Program = {};    ///< path
  std::string Arguments = {};  ///< the command line behind the program, blanks and quotes and all
  std::string Directory = {};  ///< current directory of the program
  std::string LogFile = {};    ///< takes all that it prints, anew; empty: that is let go
  WindowStyle Style = WindowStyle::Normal;
  int Inherited = -1;  ///< descriptor of an open file that a watched program keeps open; -1: none
};

/// Identifies a started program for as long as it is watched; the platform's own id.
using ProcessId = std::int64_t;

/// How a program ended.
struct ProcessEnd {
  int ExitCode = 0;
  int Signal = 0;  ///< that ended it; 0: it ended by itself

  bool Well() const { return ExitCode == 0 && Signal == 0; }
  bool operator==(const ProcessEnd&) const = default;
};

/// What the ground floor asks of the system about other programs.
class Processes {
 public:
  virtual ~Processes() = default;

  /// Starts a program and leaves it alone. False: it did not start.
  virtual bool Launch(const StartRequest& request) = 0;

  /// Starts a program that is watched until `End` is asked for. Nothing: it did not start, and
  /// `reason` says why.
  virtual std::optional<ProcessId> Start(const StartRequest& request, std::string& reason) = 0;

  /// Ends a program that is being watched, whatever it does and without its consent. Does nothing
  /// for one that has ended.
  virtual void Stop(ProcessId id) = 0;

  virtual bool IsActive(ProcessId id) = 0;

  /// Of a program that is no longer active; it is forgotten then.
  virtual ProcessEnd End(ProcessId id) = 0;

  /// Sets the title of the program's first top-level window. Does nothing where there is no such
  /// window, or where windows of others have no titles to be set.
  virtual void SetProcessWindowText(ProcessId id, const std::string& text) = 0;
};

}  // namespace lomaris

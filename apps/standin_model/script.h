#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model_kind.h"

namespace lomaris {

// A stand-in does more than run to its end when a text file "standin.txt" lies in the directory in
// which it runs. Lines are empty, remarks behind a "#", or one of these:
//
//   TavreskH                     what follows is for this program alone, until the next such line;
//   TavreskQ                     before the first of them it is for both
//   pace 5                       ms a step takes; 100 when it is not said. A run has 200 steps.
//   stay 1000                    ms that the first and the last state stay at least, so that they
//   are
//                                seen: an update that another command follows at once may never be
//   silent                       the program ends at once and never makes its exchange file
//   at 12.5 <action>             what is done just before the update of that per cent, in the order
//                                of the lines
//
// Actions that speak; texts stand in the order of their records, between bars:
//
//   message text
//   msgbox 0 text|title          the number is the type
//   question text|title
//   inputbox prompt|title|default
//   openfile title|extension|name
//
// Actions that change the course:
//
//   pace 500                     ms a step takes from here on
//   idle 5                       the per cent stands still for as many further steps
//   exit 3                       ends with this code, without a word
//   crash                        ends by a signal
//
// Actions that spoil the exchange file until the per cent moves again, so `idle` makes them last:
//
//   rows -1                      the number of rows, of columns, the length of a record
//   cols 100000
//   reclen 7
//   cut 150                      the file ends behind so many bytes, or behind its head
//   garbage                      a command that is none

enum class Action {
  Ask,  ///< a command with texts, which has an answer
  Pace,
  Idle,
  Exit,
  Crash,
  Rows,
  Cols,
  RecLen,
  Cut,
  Garbage
};

struct ScriptStep {
  double Percent = 0;
  Action What = Action::Ask;
  std::string Command;  ///< of `Ask`: "MSGBOX"
  std::optional<std::int32_t> Number;
  std::vector<std::string> Texts;
};

struct Script {
  int Pace = 100;   ///< ms
  int Stay = 1000;  ///< ms
  bool Silent = false;
  std::vector<ScriptStep> Steps;  ///< by per cent
};

inline constexpr const char* kScriptFileName = "standin.txt";

/// The script in the current directory; an empty one when there is none. Throws RuntimeError with
/// the line that makes no sense.
Script ReadScript(ModelKind kind);

}  // namespace lomaris

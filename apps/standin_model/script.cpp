#include "script.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <fmt/format.h>

#include "core/encoding.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/run_time_error.h"
#include "core/text.h"

namespace lomaris {
namespace {

struct ActionEntry {
  std::string_view Word;
  Action What;
  bool HasNumber;
};

constexpr std::array kActions = {
    ActionEntry{"message", Action::Ask, false},  ActionEntry{"msgbox", Action::Ask, true},
    ActionEntry{"question", Action::Ask, false}, ActionEntry{"inputbox", Action::Ask, false},
    ActionEntry{"openfile", Action::Ask, false}, ActionEntry{"pace", Action::Pace, true},
    ActionEntry{"idle", Action::Idle, true},     ActionEntry{"exit", Action::Exit, true},
    ActionEntry{"crash", Action::Crash, false},  ActionEntry{"rows", Action::Rows, true},
    ActionEntry{"cols", Action::Cols, true},     ActionEntry{"reclen", Action::RecLen, true},
    ActionEntry{"cut", Action::Cut, true},       ActionEntry{"garbage", Action::Garbage, false},
};

/// Cuts what stands before the next delimiter off the text.
std::string_view CutPiece(std::string_view& text, char delimiter) {
  const std::size_t end = std::min(text.find(delimiter), text.size());
  const std::string_view piece = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return piece;
}

std::string_view CutWord(std::string_view& text) {
  text = Trim(text);
  return CutPiece(text, ' ');
}

[[noreturn]] void ThrowSenseless() {
  throw RuntimeError(ErrorNumber::TypeMismatch);
}

ScriptStep ParseStep(std::string_view text) {
  ScriptStep step;
  step.Percent = ToDouble(CutWord(text));
  const std::string_view word = CutWord(text);
  const auto entry = std::ranges::find(kActions, word, &ActionEntry::Word);
  if (entry == kActions.end() || step.Percent < 0 || step.Percent > 100) ThrowSenseless();
  step.What = entry->What;
  if (entry->HasNumber) step.Number = ToLong(CutWord(text));
  if (step.What == Action::Ask) {
    step.Command = UpperCase(word);
    while (!text.empty()) step.Texts.emplace_back(CutPiece(text, '|'));
  } else if (!Trim(text).empty()) {
    ThrowSenseless();
  }
  return step;
}

void ParseLine(Script& script, std::string_view line) {
  std::string_view rest = line;
  const std::string_view word = CutWord(rest);
  if (word == "at") {
    script.Steps.push_back(ParseStep(rest));
  } else if (word == "pace") {
    script.Pace = ToLong(rest);
  } else if (word == "stay") {
    script.Stay = ToLong(rest);
  } else if (line == "silent") {
    script.Silent = true;
  } else {
    ThrowSenseless();
  }
}

bool TurnsTo(std::string_view line, ModelKind kind) {
  return EqualIgnoringCase(line, NameOf(kind));
}

}  // namespace

Script ReadScript(ModelKind kind) {
  Script script;
  const auto path = FindFile(kScriptFileName);
  if (!path) return script;
  const ModelKind other = kind == ModelKind::Hydro ? ModelKind::Qual : ModelKind::Hydro;
  const std::string content = TextFromFile(ReadWholeFile(*path));
  std::string_view rest = content;
  bool isMine = true;
  for (int number = 1; !rest.empty(); ++number) {
    const std::string line = TrimField(CutPiece(rest, '\n'));
    try {
      if (TurnsTo(line, kind) || TurnsTo(line, other)) {
        isMine = TurnsTo(line, kind);
      } else if (isMine && !line.empty() && line.front() != '#') {
        ParseLine(script, line);
      }
    } catch (const RuntimeError&) {
      throw RuntimeError(ErrorNumber::TypeMismatch,
                         fmt::format("{} line {}: {}", kScriptFileName, number, Shown(line)));
    }
  }
  std::ranges::stable_sort(script.Steps, {}, &ScriptStep::Percent);
  return script;
}

}  // namespace lomaris

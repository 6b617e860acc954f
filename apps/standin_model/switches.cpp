#include "switches.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <fmt/format.h>

namespace lomaris {
namespace {

constexpr std::string_view kNumber = "0123456789";

struct SwitchRule {
  char Letter;
  std::string_view Values;  ///< characters that its value may have; letters stand alone
  std::string_view Meaning;
};

constexpr std::array kHydroRules = {
    SwitchRule{'L', "YN", "linkage file"},
    SwitchRule{'F', "RW", "format of the linkage file"},
    SwitchRule{'S', kNumber, "every n-th step into the linkage file"},
    SwitchRule{'I', "YN", "new initial levels"},
    SwitchRule{'M', "YN", "messages"},
    SwitchRule{'E', "YN", "errors"},
    SwitchRule{'O', "YN", "output"},
    SwitchRule{'B', "YN", "mass balance"},
};

constexpr std::array kQualRules = {
    SwitchRule{'P', "YN", "linkage file of another name"},
    SwitchRule{'S', "UQH", "transport solution"},
    SwitchRule{'T', "WD", "temperature of legacy weather files"},
    SwitchRule{'M', "YN", "messages"},
    SwitchRule{'E', "YN", "errors"},
    SwitchRule{'O', "YN", "output"},
    SwitchRule{'B', "YN", "mass balance"},
};

bool Fits(const SwitchRule& rule, std::string_view word) {
  if (word.size() < 3 || word[0] != '-' || word[1] != rule.Letter) return false;
  const std::string_view value = word.substr(2);
  if (value.find_first_not_of(rule.Values) != std::string_view::npos) return false;
  return value.size() == 1 || rule.Values == kNumber;
}

}  // namespace

Switches ReadSwitches(ModelKind kind, std::span<const char* const> words) {
  const std::span<const SwitchRule> rules =
      kind == ModelKind::Hydro ? std::span<const SwitchRule>(kHydroRules) : kQualRules;
  Switches switches;
  for (const std::string_view word : words) {
    if (word.empty()) continue;  // of the two blanks before the first one
    const auto rule = std::ranges::find_if(rules, [&](const auto& r) { return Fits(r, word); });
    switches.Lines.push_back(rule == rules.end()
                                 ? fmt::format("unknown switch {}", word)
                                 : fmt::format("switch {}: {}", word, rule->Meaning));
    if (word == "-PY") switches.AsksForLinkage = rule != rules.end();
    if (word == "-ON") switches.WritesOut = false;
  }
  return switches;
}

}  // namespace lomaris

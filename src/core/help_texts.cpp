#include "core/help_texts.h"

#define SI_NO_CONVERSION   // text is UTF-8 on both sides
#define SI_IMPLEMENTATION  // the bodies of the templates
#include <SimpleIni.h>

namespace lomaris {
namespace {

std::string_view WithoutIndex(std::string_view control) {
  return control.substr(0, control.find_last_not_of("0123456789") + 1);
}

}  // namespace

HelpTexts::HelpTexts(const std::string& content) {
  CSimpleIniCaseA file;
  if (file.LoadData(content) < 0) return;
  CSimpleIniCaseA::TNamesDepend windows;
  file.GetAllSections(windows);
  for (const auto& window : windows) {
    const auto* controls = file.GetSection(window.pItem);
    for (const auto& [control, text] : *controls) windows_[window.pItem][control.pItem] = text;
  }
}

std::string_view HelpTexts::TextFor(std::string_view window, std::string_view control) const {
  const auto section = windows_.find(window);
  if (section == windows_.end()) return {};
  for (const std::string_view name : {control, WithoutIndex(control)}) {
    const auto found = section->second.find(name);
    if (found != section->second.end()) return found->second;
  }
  return {};
}

}  // namespace lomaris

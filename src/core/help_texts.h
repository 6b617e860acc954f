#pragma once

#include <map>
#include <string>
#include <string_view>

namespace lomaris {

/// The short texts of the "What's This?" mode, by window and control. They come from the help file:
/// one section per window, one line "control = text" per control, comments behind ";".
class HelpTexts {
 public:
  /// Takes the content of a help file. Lines that make no sense are passed over: a spoilt help file
  /// costs its texts, not the program.
  explicit HelpTexts(const std::string& content);

  /// Empty when there is none. Controls that carry an index ("btnBrowse3") share the text of the
  /// name without it unless they have one of their own.
  std::string_view TextFor(std::string_view window, std::string_view control) const;

 private:
  using Section = std::map<std::string, std::string, std::less<>>;
  std::map<std::string, Section, std::less<>> windows_;
};

}  // namespace lomaris

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/files.h"
#include "core/numbers.h"
#include "core/ports/ui.h"
#include "core/reader_state.h"
#include "core/text.h"

namespace lomaris {

// What the readers and writers of the model's text files have in common.

/// The path of an input file; nothing when there is no file of that name, which is told: `kind`
/// ("Hydrodynamic file") and the name. A name that is not absolute is looked up beside
/// `projectFile` first.
std::optional<std::string> FindInputFile(std::string_view kind, const std::string& name,
                                         const std::string& projectFile, Ui& ui);

/// The name on the next line, which a count has promised.
std::string ReadName(ReaderState& in);

/// The same failure, with a paragraph more to say about it.
RuntimeError WithMore(const RuntimeError& error, std::string_view more);

/// Warns that the names of other files, with which an input file ends, cannot all be read.
void TellNamesUnreadable(const ReaderState& in, Ui& ui);

/// The report of a failed read: the place in the file and the line, cut to what a box can show.
std::string InputAborted(const RuntimeError& error, std::int32_t line, std::string_view name,
                         std::string_view lastLine);

/// Runs `read` over the file at `path` under the hourglass. False when `read` gave false, having
/// told the user, or when it failed; then the user is told here, with the place in the file and the
/// line. `name` is the file's name as the user knows it.
bool ReadInputFile(const std::string& path, const std::string& name, Ui& ui,
                   const std::function<bool(ReaderState&)>& read);

/// Puts the text that `format` gives on disk, keeps one backup generation, and traps failures under
/// the name of `routine`. False when the file was not written: it failed, or `format` gave nothing,
/// having told the user. The old file is then whole.
bool WriteInputFile(const std::string& name, const std::string& projectFile,
                    const std::string& routine, Ui& ui,
                    const std::function<std::optional<std::string>()>& format);

/// Asks before a save would put away what others have written to a file since it was as `known`
/// tells. False: it is to stay.
bool MayOverwrite(const std::string& name, const FileStamp& known, const std::string& projectFile,
                  Ui& ui);

/// `count` when it lies within 0 to `most`; else error 9.
template <class Count>
Count CheckedCount(Count count, int most) {
  if (count < 0 || count > most) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                       NumberText(count) + " is not within 0 to " + NumberText(most));
  }
  return count;
}

/// Appends a text as a line of a file.
inline void AppendLine(std::string& out, std::string_view text) {
  out.append(text).append(kLineBreak);
}

/// Appends a line of tab-separated numbers.
template <class First, class... Rest>
void AppendRow(std::string& out, First first, Rest... rest) {
  AppendNumber(out, first);
  ((out += '\t', AppendNumber(out, rest)), ...);
  out += kLineBreak;
}

}  // namespace lomaris

#pragma once

#include <string_view>

namespace lomaris {

/// The application's name: title of its boxes, head of its captions, name in the settings store.
inline constexpr std::string_view kApplicationTitle = "Lomaris";

/// Version of the program, "major.minor.revision".
std::string_view ProgramVersion();

/// A build option, off in what is shipped. While it is on, no routine traps its failures, so that
/// a debugger stops at the failing statement, and the main caption says so.
#ifdef LOMARIS_DEBUG_MODE
inline constexpr bool DebugMode = true;
#else
inline constexpr bool DebugMode = false;
#endif

}  // namespace lomaris

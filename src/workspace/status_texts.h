#pragma once

#include <string_view>

namespace lomaris {

/// What the status bar says while a menu entry is highlighted. `path` is made of the captions of
/// the menu tree, joined by "|", without their "&"; so "&Contents && Index" under Help is
/// "Help|Contents  Index". One table serves all windows. Empty for a path that is not in it.
std::string_view StatusText(std::string_view path);

}  // namespace lomaris

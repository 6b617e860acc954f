#pragma once

#include <QWidget>
#include <string>

#include "core/ports/settings.h"
#include "core/window_position.h"

namespace lomaris {

// Left and top are those of the window with its frame, width and height those of what is inside
// it: so a place that is read and set again moves nothing, whether the frame is there yet or not.

/// Where a window stands; of a maximised or minimised one, its size when it is neither.
WindowPosition PositionOf(const QWidget& window);

/// Moves a window and sets its state. It need not be on the screen yet.
void MoveTo(QWidget& window, const WindowPosition& position);

/// Moves the project window or an editor to its stored position: section "MainStartup" or
/// "HNPStartup" ... It is forced onto the screen on which most of it stood, or onto the primary one
/// when that is no longer there.
void PlaceWindow(QWidget& window, const Settings& settings, const std::string& section);

/// The same for a small window, whose section is its object name where no other is given.
void GetWindowPos(QWidget& window, const Settings& settings, std::string section = {});

/// Stores where a small window stands.
void SaveWindowPos(const QWidget& window, Settings& settings, std::string section = {});

/// Keeps a window over all others, or no longer.
void SetTopMostWindow(QWidget& window, bool onTop);

}  // namespace lomaris

#pragma once

#include <string>

#include "core/ports/settings.h"

namespace lomaris {

// Positions are in twips, 15 to the pixel at 96 dots to the inch: the settings of many years are.
inline constexpr int kTwipsPerPixel = 15;

enum class WindowState : int { Normal = 0, Minimised = 1, Maximised = 2 };

/// Where a window stands, in twips.
struct WindowPosition {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
  WindowState State = WindowState::Normal;

  bool operator==(const WindowPosition&) const = default;
};

/// The part of a screen that windows may cover, in twips.
struct ScreenArea {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
};

/// Moves a position onto the screen: against the right or lower edge when it lies beyond it, and
/// never left of or above the screen. A window larger than the screen is made as large as it.
WindowPosition KeepOnScreen(WindowPosition position, const ScreenArea& screen);

/// The stored position of the project window ("MainStartup") or of an editor ("HNPStartup" ...),
/// each value defaulting to `current`, kept on the screen.
WindowPosition StoredPosition(const Settings& settings, const std::string& section,
                              const WindowPosition& current, const ScreenArea& screen);

/// Stores a position: left, top, width and height of a window in its normal state only, the state
/// unless it is minimised.
void StorePosition(Settings& settings, const std::string& section, const WindowPosition& position);

/// The stored position of a small window, under a section named after the form: "W" and "H" (at
/// least 500), "X" and "Y" (default: the middle of the screen), "Maximized".
WindowPosition GetWindowPos(const Settings& settings, const std::string& form,
                            const WindowPosition& current, const ScreenArea& screen);

/// Stores "W", "H", "X" and "Y" of a window in its normal state, and always "Maximized" as 1 or 0.
void SaveWindowPos(Settings& settings, const std::string& form, const WindowPosition& position);

}  // namespace lomaris

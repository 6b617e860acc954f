#include "core/window_position.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"

namespace lomaris {
namespace {

/// A stored number; texts that are none, which a hand may have written, give the default.
int StoredNumber(const Settings& settings, const std::string& section, const std::string& key,
                 int defaultValue) {
  const std::string text = settings.Value(section, key);
  constexpr double kMost = 1e6;
  return IsNumeric(text) ? static_cast<int>(std::lround(std::clamp(ToDouble(text), -kMost, kMost)))
                         : defaultValue;
}

int KeepWithin(int place, int start, int screen, int size) {
  return Min(Max(place, start), start + screen - size);
}

void StoreNumber(Settings& settings, const std::string& section, const std::string& key,
                 int value) {
  settings.SetValue(section, key, NumberText(value));
}

}  // namespace

WindowPosition KeepOnScreen(WindowPosition position, const ScreenArea& screen) {
  position.Width = Min(position.Width, screen.Width);
  position.Height = Min(position.Height, screen.Height);
  position.Left = KeepWithin(position.Left, screen.Left, screen.Width, position.Width);
  position.Top = KeepWithin(position.Top, screen.Top, screen.Height, position.Height);
  return position;
}

WindowPosition StoredPosition(const Settings& settings, const std::string& section,
                              const WindowPosition& current, const ScreenArea& screen) {
  WindowPosition position;
  position.Left = StoredNumber(settings, section, "Left", current.Left);
  position.Top = StoredNumber(settings, section, "Top", current.Top);
  position.Width = Max(StoredNumber(settings, section, "Width", current.Width), kTwipsPerPixel);
  position.Height = Max(StoredNumber(settings, section, "Height", current.Height), kTwipsPerPixel);
  const int state = StoredNumber(settings, section, "WindowState", 0);
  if (state == 1 || state == 2) position.State = static_cast<WindowState>(state);
  return KeepOnScreen(position, screen);
}

void StorePosition(Settings& settings, const std::string& section, const WindowPosition& position) {
  if (position.State == WindowState::Normal) {
    StoreNumber(settings, section, "Left", position.Left);
    StoreNumber(settings, section, "Top", position.Top);
    StoreNumber(settings, section, "Width", position.Width);
    StoreNumber(settings, section, "Height", position.Height);
  }
  if (position.State != WindowState::Minimised) {
    StoreNumber(settings, section, "WindowState", static_cast<int>(position.State));
  }
}

WindowPosition GetWindowPos(const Settings& settings, const std::string& form,
                            const WindowPosition& current, const ScreenArea& screen) {
  constexpr int kSmallest = 500;
  WindowPosition position;
  position.Width = Max(kSmallest, StoredNumber(settings, form, "W", current.Width));
  position.Height = Max(kSmallest, StoredNumber(settings, form, "H", current.Height));
  const int middleX = screen.Left + (screen.Width - position.Width) / 2;
  const int middleY = screen.Top + (screen.Height - position.Height) / 2;
  position.Left = StoredNumber(settings, form, "X", middleX);
  position.Top = StoredNumber(settings, form, "Y", middleY);
  const bool maximised = StoredNumber(settings, form, "Maximized", 0) == 1;
  position.State = maximised ? WindowState::Maximised : WindowState::Normal;
  return KeepOnScreen(position, screen);
}

void SaveWindowPos(Settings& settings, const std::string& form, const WindowPosition& position) {
  if (position.State == WindowState::Normal) {
    StoreNumber(settings, form, "W", position.Width);
    StoreNumber(settings, form, "H", position.Height);
    StoreNumber(settings, form, "X", position.Left);
    StoreNumber(settings, form, "Y", position.Top);
  }
  StoreNumber(settings, form, "Maximized", position.State == WindowState::Maximised ? 1 : 0);
}

}  // namespace lomaris

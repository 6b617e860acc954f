#pragma once

#include <QIcon>
#include <QWidget>
#include <span>

namespace lomaris {

/// One of the program's own drawings by its file name ("new", "run_h" ...), in the text colour that
/// the palette has at the moment of painting: right in a dark palette, grey when disabled, sharp on
/// any screen. A null icon when there is no such drawing.
QIcon ThemedIcon(const QString& name);

/// An action of a window by its object name, and its drawing.
struct ActionIcon {
  const char* Action;
  const char* Icon;
};

/// Every action named has to be there.
void SetActionIcons(const QWidget& window, std::span<const ActionIcon> icons);

}  // namespace lomaris

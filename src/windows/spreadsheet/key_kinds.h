#pragma once

#include <QKeyEvent>

namespace lomaris {

/// True for a key that types text, not a command. Ctrl and Alt together type on some keyboards.
inline bool IsTyped(const QKeyEvent& key) {
  const bool ctrl = key.modifiers().testFlag(Qt::ControlModifier);
  const bool alt = key.modifiers().testFlag(Qt::AltModifier);
  return ctrl == alt && !key.modifiers().testFlag(Qt::MetaModifier) && !key.text().isEmpty() &&
         key.text().front().isPrint();
}

inline bool IsEnter(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace lomaris

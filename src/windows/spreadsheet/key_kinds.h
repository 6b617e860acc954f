#pragma once

#include <QKeyEvent>
#include <QKeySequence>

#include "spreadsheet/sheet_commands.h"

namespace lomaris {

struct CommandKey {
  SheetCommand Command;
  QKeySequence::StandardKey Key;
};

/// The keys of the commands that have some.
inline constexpr CommandKey kCommandKeys[] = {
    {SheetCommand::Cut, QKeySequence::Cut},
    {SheetCommand::Copy, QKeySequence::Copy},
    {SheetCommand::Paste, QKeySequence::Paste},
    {SheetCommand::Clear, QKeySequence::Delete},
    {SheetCommand::SelectAll, QKeySequence::SelectAll},
};

/// The first of each is shown in menus.
inline const QList<QKeySequence> kUndoKeys = {Qt::CTRL | Qt::Key_Z};
inline const QList<QKeySequence> kRedoKeys = {Qt::CTRL | Qt::Key_Y,
                                              Qt::CTRL | Qt::SHIFT | Qt::Key_Z};
inline const QList<QKeySequence> kMenuKeys = {Qt::Key_Menu, Qt::SHIFT | Qt::Key_F10};

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

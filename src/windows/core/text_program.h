#pragma once

#include <QStringList>

namespace lomaris {

/// The desktop's program for plain text, with its arguments, for a file whose name does not say
/// that it is text. Empty where the desktop names none that has a window of its own.
QStringList TextProgram(const QString& file);

/// The command of a desktop entry, the text of a ".desktop" file, for one file. Empty when the
/// entry names none, or needs a terminal.
QStringList CommandOfEntry(const QString& entry, const QString& file);

}  // namespace lomaris

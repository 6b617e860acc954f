#pragma once

#include <QIcon>

namespace lomaris {

/// One of the program's own drawings by its file name ("new", "run_h" ...), in the text colour that
/// the palette has at the moment of painting: right in a dark palette, grey when disabled, sharp on
/// any screen. A null icon when there is no such drawing.
QIcon ThemedIcon(const QString& name);

}  // namespace lomaris

#pragma once

#include <QString>
#include <QWidget>

namespace lomaris {

/// Makes a file the application's help file, which serves the "What's This?" mode of every window
/// that is made from then on.
void SetHelpFile(const QString& file);

/// Gives every control and menu entry of a window its text of the help file, found by the object
/// names of both, for the "What's This?" mode, and for screen readers where it has no description
/// yet. Does nothing while there is no help file.
void ApplyWhatsThis(QWidget& window);

}  // namespace lomaris

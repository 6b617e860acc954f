#pragma once

#include "album.h"
#include "core/ports/settings.h"
#include "core/ports/ui.h"

namespace lomaris {

/// Keeps pictures of the windows behind the Run menu of the project window. No model is run: what
/// the monitor shows is made up. `ending` stands behind the names of the pictures.
void ShowTheRun(QWidget& project, Ui& ui, Settings& settings, Album& album, const QString& ending);

}  // namespace lomaris

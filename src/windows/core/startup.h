#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "core/ports/settings.h"
#include "core/ports/ui.h"
#include "core/tables.h"

namespace lomaris {

/// Makes the project window, which is not on the screen yet.
using ProjectWindowFactory = std::function<std::unique_ptr<QWidget>()>;

/// The program's entry: what runs before any file is touched. Shows the splash, builds `tables`,
/// takes the help file into use, then makes, places and shows the project window. The event loop
/// carries on from there for as long as the returned window lives. Nothing is returned when a step
/// failed and the user chose to leave; that has been reported by then.
///
/// `programFolder` is where "Lomaris.hlp" is looked for. The program does without it, and says so
/// once.
std::unique_ptr<QWidget> Main(Tables& tables, const ProjectWindowFactory& loadProjectWindow, Ui& ui,
                              const Settings& settings, const QString& programFolder);

}  // namespace lomaris

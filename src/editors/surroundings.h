#pragma once

#include <string>

#include "core/ports/settings.h"
#include "core/ports/ui.h"
#include "core/ports/workbench.h"
#include "core/tables.h"
#include "model/hydro_input.h"
#include "model/project_data.h"
#include "model/qual_input.h"
#include "spreadsheet/sheet_commands.h"

namespace lomaris {

/// What the editors remember from one window to the next, until the program ends.
struct EditorSession {
  bool ToldOfRestructuring = false;
  CopiedDates Copied = {};  ///< among the grids of all windows
};

/// What the editors work on and speak through. All of it outlives them.
struct EditorSurroundings {
  ProjectData& Project;
  HydroInput& Hydro;
  QualInput& Qual;
  const Tables& SharedTables;
  EditorSession& Session;
  Ui& Screen;
  Settings& Store;
  Workbench& Windows;
  std::string ProgramFolder = {};
};

}  // namespace lomaris

#pragma once

#include "auxiliary/aux_window.h"
#include "core/ports/ui.h"
#include "core/tables.h"
#include "model/hydro_input.h"
#include "model/project_data.h"

namespace lomaris {

/// What the reader and the writer of auxiliary files look at besides the record.
struct AuxSurroundings {
  const HydroInput& Hydro;     ///< the network that node numbers and names are held against
  const ProjectData& Project;  ///< its folder, and the boundary files of its branches
  Tables& Constituents;        ///< the window's own: a BMD renames its rows
  Ui& Screen;
  AuxWindow* Window = nullptr;  ///< none: the reader takes the header only
};

}  // namespace lomaris

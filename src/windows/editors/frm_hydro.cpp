#include "windows/editors/frm_hydro.h"

namespace lomaris {

frmHydro::frmHydro(const EditorSurroundings& around) : around_(around) {}

void frmHydro::Initialize(const EditRequest&) {}

}  // namespace lomaris

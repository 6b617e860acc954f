#include "windows/editors/frm_xsect.h"

namespace lomaris {

frmXSect::frmXSect(const EditorSurroundings& around) : around_(around) {}

void frmXSect::Initialize(const EditRequest&) {}

}  // namespace lomaris

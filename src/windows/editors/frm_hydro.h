#pragma once

#include "editors/surroundings.h"
#include "windows/core/editor_window.h"

namespace lomaris {

/// The editor of the hydrodynamic input file.
class frmHydro : public EditorWindow {
  Q_OBJECT

 public:
  explicit frmHydro(const EditorSurroundings& around);

  void Initialize(const EditRequest& request) override;

 private:
  EditorSurroundings around_;
};

}  // namespace lomaris

#pragma once

#include "editors/surroundings.h"
#include "windows/core/editor_window.h"

namespace lomaris {

/// The editor of one cross section library.
class frmXSect : public EditorWindow {
  Q_OBJECT

 public:
  explicit frmXSect(const EditorSurroundings& around);

  void Initialize(const EditRequest& request) override;

 private:
  EditorSurroundings around_;
};

}  // namespace lomaris

#pragma once

#include <string>
#include <vector>

#include "editors/hydro_form.h"

namespace lomaris {

/// What the logic of the hydrodynamic editor asks of its window. The labels, tips and enabled
/// controls of the downstream end follow from `LookOf` the form's type.
class HydroView {
 public:
  virtual ~HydroView() = default;

  virtual HydroForm Form() const = 0;
  virtual void ShowForm(const HydroForm& form) = 0;

  virtual BranchForm Branch() const = 0;
  virtual void ShowBranch(const BranchForm& form) = 0;

  /// Fills `cboBranchH` and selects an entry, -1 for none.
  virtual void ShowBranchList(const std::vector<std::string>& names, int selected) = 0;

  virtual void SetCaption(const std::string& caption) = 0;
};

}  // namespace lomaris

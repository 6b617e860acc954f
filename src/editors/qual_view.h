#pragma once

#include <string>
#include <vector>

#include "editors/qual_form.h"

namespace lomaris {

/// What the logic of the water quality editor asks of its window.
class QualView {
 public:
  virtual ~QualView() = default;

  virtual QualForm Form() const = 0;
  virtual void ShowForm(const QualForm& form) = 0;

  virtual QualBranchForm Branch() const = 0;
  virtual void ShowBranch(const QualBranchForm& form) = 0;

  /// Fills `SSTabBranchQ` and selects a branch, from 0, -1 for none.
  virtual void ShowBranchList(const std::vector<std::string>& names, int selected) = 0;

  /// Ends the edit of a cell. False: its text was refused, and its editor is still open.
  virtual bool EndEdits() = 0;

  /// Of a load, in percent; 100 ends it.
  virtual void ShowProgress(int percent) = 0;

  virtual void SetCaption(const std::string& caption) = 0;
};

}  // namespace lomaris

#pragma once

#include <string>
#include <vector>

#include "workspace/project_form.h"

namespace lomaris {

/// What the logic of the project window asks of the window.
class ProjectView {
 public:
  virtual ~ProjectView() = default;

  /// Whether the project may be closed, moved, or make room for another one. False: something still
  /// needs it, and the user has been told.
  virtual bool MayLeaveProject() = 0;

  /// What stands in the controls now.
  virtual ProjectForm Form() const = 0;

  /// Fills the controls. With no project open the tabs give way to the wallpaper, and only what
  /// needs no project is offered.
  virtual void ShowForm(const ProjectForm& form, bool projectOpen) = 0;

  /// Shows the tab of the files, ready for input.
  virtual void ShowFilesTab() = 0;

  /// Gives the focus to the control of a file slot.
  virtual void FocusSlot(std::size_t slot) = 0;

  virtual std::string Caption() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;

  /// Shows the recent projects, the latest first.
  virtual void ShowRecent(const std::vector<std::string>& names) = 0;
};

}  // namespace lomaris

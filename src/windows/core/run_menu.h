#pragma once

namespace lomaris {

/// What the project window asks of those who run the models.
class RunMenu {
 public:
  virtual ~RunMenu() = default;

  /// An item of the Run menu was chosen. `index` is that of the menu item.
  virtual void RunItem(int index) = 0;

  /// Whether the project may be closed, moved, or make room for another one. False, which has been
  /// told: a model is still running.
  virtual bool MayLeaveProject() = 0;
};

}  // namespace lomaris

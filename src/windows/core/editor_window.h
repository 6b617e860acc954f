#pragma once

#include <QMainWindow>

#include "core/ports/workbench.h"

namespace lomaris {

/// A window in which one file is edited. It is made by the workbench, shown, and then told which
/// file it is for; it deletes itself when it has been closed.
class EditorWindow : public QMainWindow {
  Q_OBJECT

 public:
  using QMainWindow::QMainWindow;

  /// Loads the file and shows it. An editor that cannot, or whose caption `FileAlreadyOpen` finds
  /// taken, closes itself.
  virtual void Initialize(const EditRequest& request) = 0;

  /// The file that is edited; empty for a new one.
  virtual std::string FileName() const { return {}; }

  /// Whether there are changes that are not on disk. A cell that is being edited is taken first;
  /// one whose text is refused counts as a change.
  virtual bool HasUnsavedChanges() { return false; }

  /// Whether the window edits the network in memory.
  virtual bool EditsNetwork() const { return false; }

  // What other windows have done.
  virtual void LookupsRenamed(const std::string& /*from*/, const std::string& /*to*/,
                              const std::vector<std::string>& /*xsects*/) {}
  virtual void LibrarySaved(const std::string& /*fileName*/) {}

 signals:
  /// The window is about to close and cannot be kept from it; it still stands where it stood.
  void Closing();

 protected:
  /// Whether the window may close: asks about unsaved changes.
  virtual bool MayClose() { return true; }

 private:
  void closeEvent(QCloseEvent* event) final;
};

}  // namespace lomaris

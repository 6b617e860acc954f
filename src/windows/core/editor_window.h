#pragma once

#include <QMainWindow>

#include "core/ports/settings.h"
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

  /// Whether what the window edits belongs to the network in memory, without which it cannot stay.
  virtual bool NeedsNetwork() const { return false; }

  // What other windows have done.
  virtual void LookupsRenamed(const std::string& /*from*/, const std::string& /*to*/,
                              const std::vector<std::string>& /*xsects*/) {}
  virtual void LibrarySaved(const std::string& /*fileName*/) {}

 signals:
  /// The window is about to close and cannot be kept from it; it still stands where it stood.
  void Closing();

 protected:
  /// Gives Ctrl and a key to whichever control of a window has the focus.
  using KeySender = void (*)(const QWidget& window, int key);

  /// At the end of the constructor, when all controls are there: gives the form what all editors
  /// have. These entries of its menus, which go by their object names, get their icons and do what
  /// they say: `mnuFileSave`, `mnuFileSaveAs`, `mnuFileSaveClose`, `mnuFileClose`, `mnuEditUndo`,
  /// `mnuEditRedo`, `mnuEditCut`, `mnuEditCopy`, `mnuEditPaste`, `mnuHelpContents`,
  /// `mnuHelpWhatsThis`.
  void CompleteForm(int helpTopic, Settings& store, KeySender sendToFocus);

  /// Saves the file. False: not saved; the user has been told why, or has cancelled.
  virtual bool Save(bool /*saveAs*/) { return true; }

  /// Whether the window may close: asks about unsaved changes.
  virtual bool MayClose() { return true; }

 private:
  void closeEvent(QCloseEvent* event) final;
};

}  // namespace lomaris

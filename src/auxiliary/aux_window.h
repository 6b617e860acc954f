#pragma once

namespace lomaris {

/// What the reader and the writer of auxiliary files ask of the editor's window. Without a window
/// they skip all of it.
class AuxWindow {
 public:
  virtual ~AuxWindow() = default;

  virtual void SetBusyPointer(bool busy) = 0;

  /// The progress bar, from 0 to 100; shown at 0.
  virtual void ShowProgress(bool shown) = 0;
  virtual void SetProgress(int percent) = 0;

  virtual void EnableMainTab(bool enabled) = 0;

  /// Whether the window is to be given up: the user closed it while its file was read.
  virtual bool FormCancelled() const = 0;
  virtual void SetFormCancelled() = 0;

  virtual void Close() = 0;
};

}  // namespace lomaris

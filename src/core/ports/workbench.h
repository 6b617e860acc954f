#pragma once

#include <string>
#include <vector>

namespace lomaris {

/// A file that is to be opened in its editor. The slot, row, end and type are for the editor of an
/// auxiliary file alone.
struct EditRequest {
  std::string FileName = {};  ///< empty, with `Kind` set: a new, empty file
  std::string Kind = {};      ///< type key of a new file, "HNP" to "BMD"
  int Slot = 0;               ///< file slot of the project window, 0 to 9
  int Row = 0;                ///< branch number (boundary file) or place in the list (weather file)
  bool IsUpstream = false;    ///< boundary file: which end of the branch
  std::string BoundaryType = {};  ///< boundary file: "Q", "H", "T", or empty when not known
  bool Aside = false;  ///< the file does not enter the project, nor what it says the shared records

  bool operator==(const EditRequest&) const = default;
};

/// What is said of a file that a window has open already.
inline constexpr const char* kOpenOnce = "You can open a given file only once per session.";

/// What the ground floor asks of the set of open windows.
class Workbench {
 public:
  virtual ~Workbench() = default;

  /// Whether a file of this type key can be opened: its editor exists.
  virtual bool OffersEditor(const std::string& kind) const = 0;

  /// Opens a file in its editor, and returns when it is on the screen or was refused.
  virtual void FileEdit(const EditRequest& request) = 0;

  /// Whether an open window edits this file, however its name is spelt.
  virtual bool EditsFile(const std::string& fileName) const = 0;

  /// The files with changes that are not on disk: those of the windows, a cell that is still being
  /// edited among them, and the network in memory. A file without a name is told by its window.
  virtual std::vector<std::string> UnsavedFiles() = 0;

  /// Closes every window but the project window, and releases the network. False: one of them
  /// stayed open, or the network has to stay.
  virtual bool CloseOtherWindows() = 0;

  /// Brings the project window in line with the project record.
  virtual void RefreshProjectWindow() = 0;

  /// Whether a window edits the network in memory.
  virtual bool EditsNetwork() const = 0;

  /// Before the network in memory makes room for another one, or for none: closes the windows of
  /// what belongs to it and the one that edits it, and asks about changes that wait in it. False:
  /// it has to stay.
  virtual bool ReleaseNetwork() = 0;

  /// A section of the library has got another name, and so have the look-ups of the network in
  /// memory, of these cross sections, or of all that had the old one: whoever shows them follows.
  virtual void LookupsRenamed(const std::string& from, const std::string& to,
                              const std::vector<std::string>& xsects) = 0;

  /// A cross section library was written.
  virtual void LibrarySaved(const std::string& fileName) = 0;
};

}  // namespace lomaris

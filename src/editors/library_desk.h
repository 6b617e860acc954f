#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/files.h"
#include "editors/surroundings.h"
#include "model/xsect_library.h"
#include "spreadsheet/sheet.h"

namespace lomaris {

/// The caption of a library's window, by which a second window on a file is known.
std::string LibraryCaption(const std::string& fileName);

/// What the small name dialog asks for.
struct SectionName {
  std::string Name;
  std::string Description;

  bool operator==(const SectionName&) const = default;
};

/// The check on leaving the dialog's name field, and on OK. False: the user has been told.
bool SectionNameFits(const std::string& name, Ui& ui);

/// A point that cannot stand behind the one before it.
struct PointFault {
  int Point = 0;  ///< counts from 1
  std::string Text;
};

/// All of them in order, the fault of the station before that of the depth.
std::vector<PointFault> PointFaults(const std::vector<XSectPoint>& points);

/// What the logic of the library editor asks of its window.
class LibraryView {
 public:
  virtual ~LibraryView() = default;

  /// The library's three title lines, `txtDescription`.
  virtual std::string Title() const = 0;
  virtual void ShowTitle(const std::string& title) = 0;

  /// The description of the entry on view.
  virtual std::string Description() const = 0;
  virtual void ShowDescription(const std::string& description) = 0;

  /// Fills `cboXSect` and selects an entry, -1 for none.
  virtual void ShowList(const std::vector<std::string>& names, int selected) = 0;

  /// The name dialog; nothing when cancelled.
  virtual std::optional<SectionName> AskName(const std::string& title,
                                             const SectionName& proposal) = 0;

  virtual void SetCaption(const std::string& caption) = 0;
};

/// The logic of the editor of one cross section library. Every action is a routine of its own whose
/// failure is reported under its name.
class LibraryDesk {
 public:
  LibraryDesk(const EditorSurroundings& around, LibraryView& view);
  LibraryDesk(const LibraryDesk&) = delete;
  LibraryDesk& operator=(const LibraryDesk&) = delete;

  /// The grid of points, for the window to show.
  Sheet& Points() { return points_; }
  const XSectLibrary& Library() const { return library_; }

  /// Loads a library and shows its first entry. An empty name, or one of no file: a new library.
  /// False: the file cannot be read.
  bool Open(const std::string& fileName);

  /// False: not saved. The user has been told why, or has cancelled.
  bool Save(bool saveAs);

  /// Asks about unsaved changes. False: the window is to stay.
  bool QueryUnload();

  /// The user has changed a field or a cell.
  void Edited();

  /// Stores the entry on view and shows another, counted from 0. False: the store was stopped, and
  /// the list shows the same entry as before.
  bool SelectEntry(int entry);

  /// The points in the grid as far as they can be read, for the picture.
  std::vector<XSectPoint> ShownPoints() const;

  void Add();
  void Delete();
  void Rename();

 private:
  /// A section's new name, which the network in memory has followed.
  struct Renamed {
    std::string From;
    std::string To;
    std::string Network;              ///< its file
    FileStamp OnDisk;                 ///< that file then
    std::vector<std::string> XSects;  ///< the cross sections that have followed; empty for all that
                                      ///< look up the new name
    bool OfProject;                   ///< in the library that the project names
  };

  bool Run(const char* routine, const std::function<bool()>& action);
  void SetUpGrid();
  void ShowList();
  void ShowEntry(int number);
  bool TakeEntry();
  bool TakePoints(std::vector<XSectPoint>& points);
  bool Write(bool saveAs);
  bool Agreed(const std::string& question);
  std::optional<SectionName> AskedName(const std::string& title, const SectionName& proposal);
  bool IsProjects(const std::string& fileName) const;
  bool IsTaken(const std::string& name) const;
  bool FaultsPass(const std::vector<XSectPoint>& points);
  bool NetworkIsWanted();
  void RenameInNetwork(const std::string& from, const std::string& to);
  void TakeBack(const Renamed& renamed, bool wasSaved);
  void TakeRenamesBack(bool all);
  bool SaveRenames();
  bool SaveNetworkOfNobody();

  EditorSurroundings around_;
  LibraryView& view_;
  Sheet points_;
  XSectLibrary library_;
  std::vector<Renamed> renames_;  ///< those of the network that the library on disk does not have
  bool networkWasSaved_ = false;  ///< before the first of them
  int number_ = 0;                ///< of the entry on view; 0 for none
  bool showing_ = false;          ///< what changes in the window now is our own doing
};

}  // namespace lomaris

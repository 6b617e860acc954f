#pragma once

#include <QStringList>
#include <memory>

#include "editors/library_desk.h"
#include "editors/surroundings.h"
#include "windows/core/editor_window.h"

namespace Ui {
class frmXSect;
}

namespace lomaris {

/// The editor of one cross section library: its entries one at a time, as a grid of points and as a
/// drawing that follows it.
class frmXSect : public EditorWindow, private LibraryView {
  Q_OBJECT

 public:
  explicit frmXSect(const EditorSurroundings& around);
  ~frmXSect() override;

  void Initialize(const EditRequest& request) override;
  std::string FileName() const override { return desk_.Library().FileName; }
  bool HasUnsavedChanges() override;

 private:
  bool Save(bool saveAs) override;
  bool MayClose() override;

  std::string Title() const override;
  void ShowTitle(const std::string& title) override;
  std::string Description() const override;
  void ShowDescription(const std::string& description) override;
  void ShowList(const std::vector<std::string>& names, int selected) override;
  std::optional<SectionName> AskName(const std::string& title,
                                     const SectionName& proposal) override;
  void SetCaption(const std::string& caption) override;

  void SetLooks();
  void ConnectMenus();
  void ConnectFields();
  void ConnectGrid();

  /// What an entry on the form does, once the cell that is being edited has been taken.
  void Offer(QAction* action, void (LibraryDesk::*routine)());
  void SelectEntry(int entry);
  void EnableEntry();
  void FollowGrid();
  void FollowRow();
  void ShowDrawing(bool visible);

  EditorSurroundings around_;
  std::unique_ptr<::Ui::frmXSect> ui_;
  LibraryDesk desk_;
  QStringList names_;  ///< in the list; filled again only when they change
  int entry_ = -1;     ///< on view, counted from 0
  std::string title_;  ///< as it was shown: the field turns some blanks into others
};

}  // namespace lomaris

#pragma once

#include <QFileIconProvider>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <string>
#include <vector>

class QListView;
class QTreeView;

namespace lomaris {

/// The list of the project's other files, with the desktop's icon and type name of each. One model
/// under two views: icons and list, and the report with its columns.
class FileListView : public QStackedWidget {
  Q_OBJECT

 public:
  enum class Look { LargeIcons, SmallIcons, List, Details };

  explicit FileListView(QWidget* parent = nullptr);

  void SetFiles(const std::vector<std::string>& paths);
  std::vector<std::string> Files() const;

  void SetLook(Look look);

  /// Row of the selected file, -1 for none.
  int SelectedRow() const;

 signals:
  void FileActivated();
  void SelectionChanged();
  void RemoveRequested();
  void FilesDropped(const std::vector<std::string>& paths);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddRow(const QString& path);
  void ShowTexts();

  QStandardItemModel model_;
  QFileIconProvider icons_;
  QListView* list_;
  QTreeView* report_;
  Look look_ = Look::Details;
};

/// The local files of a drop, as paths; what is no local file is left out.
std::vector<std::string> DroppedFiles(const QDropEvent& event);

}  // namespace lomaris

#include "windows/workspace/file_list_view.h"

#include <QDateTime>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QLocale>
#include <QMimeData>
#include <QMimeDatabase>
#include <QTreeView>
#include <QUrl>
#include <algorithm>

namespace lomaris {
namespace {

constexpr int kPathRole = Qt::UserRole + 1;

QString TypeName(const QString& path) {
  const QMimeType type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
  if (!type.isDefault()) return type.comment();
  const QString extension = QFileInfo(path).suffix().toUpper();
  return extension.isEmpty() ? FileListView::tr("File")
                             : FileListView::tr("%1 File").arg(extension);
}

}  // namespace

FileListView::FileListView(QWidget* parent)
    : QStackedWidget(parent), list_(new QListView), report_(new QTreeView) {
  model_.setHorizontalHeaderLabels({tr("File"), tr("Type"), tr("Size"), tr("Modified")});
  report_->setRootIsDecorated(false);
  report_->setAllColumnsShowFocus(true);
  list_->setResizeMode(QListView::Adjust);
  list_->setMovement(QListView::Static);
  list_->setTextElideMode(Qt::ElideMiddle);
  report_->setTextElideMode(Qt::ElideMiddle);
  for (QAbstractItemView* view :
       {static_cast<QAbstractItemView*>(list_), static_cast<QAbstractItemView*>(report_)}) {
    addWidget(view);
    view->setModel(&model_);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setAccessibleName(tr("Other files"));
    view->installEventFilter(this);
    connect(view, &QAbstractItemView::doubleClicked, this, &FileListView::FileActivated);
    view->setToolTip(tr("Other files of the project; drop files here to add them"));
  }
  report_->setSelectionModel(list_->selectionModel());
  connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &FileListView::SelectionChanged);
  report_->header()->setStretchLastSection(false);
  report_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  report_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  setAcceptDrops(true);
  setFocusProxy(report_);
  SetLook(Look::Details);
}

void FileListView::SetFiles(const std::vector<std::string>& paths) {
  const int row = std::min(std::max(SelectedRow(), 0), static_cast<int>(paths.size()) - 1);
  model_.removeRows(0, model_.rowCount());
  for (const std::string& path : paths) AddRow(QString::fromStdString(path));
  ShowTexts();
  if (row >= 0) {
    list_->selectionModel()->setCurrentIndex(
        model_.index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
  emit SelectionChanged();
}

void FileListView::AddRow(const QString& path) {
  const QFileInfo info(path);
  auto* file = new QStandardItem(icons_.icon(info), path);
  file->setData(path, kPathRole);
  auto* size = new QStandardItem(QLocale().formattedDataSize(info.size()));
  size->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* modified = new QStandardItem(QLocale().toString(info.lastModified(), QLocale::ShortFormat));
  const QList<QStandardItem*> row = {file, new QStandardItem(TypeName(path)), size, modified};
  for (QStandardItem* item : row) item->setToolTip(path.toLower());
  model_.appendRow(row);
}

std::vector<std::string> FileListView::Files() const {
  std::vector<std::string> paths;
  for (int row = 0; row < model_.rowCount(); ++row) {
    paths.push_back(model_.item(row)->data(kPathRole).toString().toStdString());
  }
  return paths;
}

void FileListView::SetLook(Look look) {
  constexpr int kLarge = 32;
  constexpr int kSmall = 16;
  look_ = look;
  const bool icons = look == Look::LargeIcons || look == Look::SmallIcons;
  list_->setViewMode(look == Look::LargeIcons ? QListView::IconMode : QListView::ListMode);
  list_->setFlow(icons ? QListView::LeftToRight : QListView::TopToBottom);
  list_->setWrapping(icons);
  list_->setMovement(QListView::Static);
  const int size = look == Look::LargeIcons ? kLarge : kSmall;
  list_->setIconSize({size, size});
  list_->setGridSize(look == Look::LargeIcons ? QSize(4 * kLarge, 2 * kLarge) : QSize());
  setCurrentWidget(look == Look::Details ? static_cast<QWidget*>(report_) : list_);
  setFocusProxy(currentWidget());
  ShowTexts();
}

void FileListView::ShowTexts() {
  for (int row = 0; row < model_.rowCount(); ++row) {
    QStandardItem* file = model_.item(row);
    const QString path = file->data(kPathRole).toString();
    file->setText(look_ == Look::LargeIcons ? QFileInfo(path).fileName() : path);
  }
}

int FileListView::SelectedRow() const {
  const QModelIndex current = list_->selectionModel()->currentIndex();
  return current.isValid() ? current.row() : -1;
}

bool FileListView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QStackedWidget::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Delete) {
    emit RemoveRequested();
  } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    emit FileActivated();
  } else {
    return false;
  }
  return true;
}

void FileListView::dragEnterEvent(QDragEnterEvent* event) {
  if (DroppedFiles(*event).empty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void FileListView::dropEvent(QDropEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->accept();
  emit FilesDropped(DroppedFiles(*event));
}

std::vector<std::string> DroppedFiles(const QDropEvent& event) {
  std::vector<std::string> paths;
  for (const QUrl& url : event.mimeData()->urls()) {
    if (url.isLocalFile()) paths.push_back(url.toLocalFile().toStdString());
  }
  return paths;
}

}  // namespace lomaris

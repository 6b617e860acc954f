#include "windows/core/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "core/files.h"
#include "windows/core/file_filter.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

bool IsPattern(const QString& name) {
  return name.contains('*') || name.contains('?');
}

/// The folder where the dialog opens: that of the proposed file, else the one asked for, else the
/// current one. Names of folders may be written with either separator and in any case.
QString StartFolder(const FileDialog& dialog) {
  for (const std::string& name : {FolderOf(dialog.FileName), dialog.InitialDirectory}) {
    if (name.empty()) continue;
    const QFileInfo folder(QFileInfo(ToQt(TargetPath(name + "/x"))).path());
    if (folder.isDir()) return folder.absoluteFilePath();
    if (const auto file = FindFile(name)) return QFileInfo(ToQt(*file)).absolutePath();
  }
  return QDir::currentPath();
}

QFileDialog::FileMode ModeOf(const FileDialog& dialog) {
  if (dialog.SaveMode) return QFileDialog::AnyFile;
  if ((dialog.Flags & kAllowMultiSelect) != 0) return QFileDialog::ExistingFiles;
  return (dialog.Flags & kFileMustExist) != 0 ? QFileDialog::ExistingFile : QFileDialog::AnyFile;
}

void Prepare(QFileDialog& window, const FileDialog& dialog) {
  window.setOption(QFileDialog::HideNameFilterDetails);
  window.setOption(QFileDialog::DontConfirmOverwrite, (dialog.Flags & kOverwritePrompt) == 0);
  window.setAcceptMode(dialog.SaveMode ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  window.setFileMode(ModeOf(dialog));
  if (!dialog.Title.empty()) window.setWindowTitle(ToQt(dialog.Title));
  if (!dialog.Filter.empty()) window.setNameFilters(QtFilters(dialog.Filter));
  // A file to be opened may well have no extension; only a new one is given its own.
  if (dialog.SaveMode) window.setDefaultSuffix(ToQt(dialog.DefaultExtension));
  const QString name = ToQt(BareName(dialog.FileName));
  // A pattern is what the filter shows already, and it is no name to save under.
  if (!name.isEmpty() && !IsPattern(name)) window.selectFile(name);
}

}  // namespace

std::vector<std::string> ShowFileDialog(const FileDialog& dialog, QWidget* parent, Ui& ui) {
  QFileDialog window(parent, {}, StartFolder(dialog));
  Prepare(window, dialog);
  while (window.exec() == QDialog::Accepted) {
    const QStringList chosen = window.selectedFiles();
    if ((dialog.Flags & kPathMustExist) != 0 && !FolderExists(FromQt(chosen.first()))) {
      ui.ShowMessage({.Text = FromQt(chosen.first()) +
                              "\r\nPath does not exist.\r\nPlease verify the correct path was "
                              "given.",
                      .BoxIcon = Icon::Warning});
      continue;
    }
    std::vector<std::string> files;
    for (const QString& file : chosen) files.push_back(FromQt(QDir::toNativeSeparators(file)));
    return files;
  }
  return {};
}

}  // namespace lomaris

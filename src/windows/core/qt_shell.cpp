#include "windows/core/qt_shell.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "core/files.h"
#include "windows/core/qt_text.h"
#include "windows/core/text_program.h"

namespace lomaris {
namespace {

// Results of Open, in the numbering of the port.
constexpr int kFileNotFound = 2;
constexpr int kPathNotFound = 3;
constexpr int kAccessDenied = 5;
constexpr int kNoProgram = 31;
constexpr int kOpened = 33;

bool IsAddress(const std::string& document) {
  const QString scheme = QUrl(ToQt(document)).scheme();
  return scheme == "http" || scheme == "https" || scheme == "mailto";
}

int OpenUrl(const QUrl& url) {
  return QDesktopServices::openUrl(url) ? kOpened : kNoProgram;
}

}  // namespace

int QtShell::Open(const std::string& document) {
  if (IsAddress(document)) return OpenUrl(QUrl(ToQt(document)));
  const QFileInfo file(ToQt(TargetPath(document)));
  if (!file.exists()) return file.dir().exists() ? kFileNotFound : kPathNotFound;
  if (!file.isReadable()) return kAccessDenied;
  return OpenUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

int QtShell::OpenText(const std::string& fileName) {
  const QFileInfo file(ToQt(TargetPath(fileName)));
  if (!file.isFile()) return kFileNotFound;
  const QString path = file.absoluteFilePath();
  QStringList command = TextProgram(path);
  if (command.isEmpty()) return OpenUrl(QUrl::fromLocalFile(path));
  const QString program = command.takeFirst();
  return QProcess::startDetached(program, command, file.absolutePath()) ? kOpened : kNoProgram;
}

}  // namespace lomaris

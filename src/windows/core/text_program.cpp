#include "windows/core/text_program.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace lomaris {
namespace {

constexpr int kPatience = 3000;  // ms

/// Name of the desktop entry that the user has chosen for plain text.
QString TextEntry() {
  QProcess query;
  query.start("xdg-mime", {"query", "default", "text/plain"}, QIODevice::ReadOnly);
  if (!query.waitForFinished(kPatience)) return {};
  return QString::fromUtf8(query.readAllStandardOutput()).trimmed();
}

/// Value of a key in the entry's main group.
QString ValueIn(const QString& entry, const QString& key) {
  bool inMainGroup = false;
  for (const QString& line : entry.split('\n')) {
    if (line.startsWith('[')) inMainGroup = line.trimmed() == "[Desktop Entry]";
    if (inMainGroup && line.startsWith(key + '=')) return line.mid(key.size() + 1).trimmed();
  }
  return {};
}

}  // namespace

QStringList CommandOfEntry(const QString& entry, const QString& file) {
  if (ValueIn(entry, "Terminal") == "true") return {};
  QStringList command;
  bool takesFile = false;
  for (const QString& part : QProcess::splitCommand(ValueIn(entry, "Exec"))) {
    const bool isFile = part == "%f" || part == "%F" || part == "%u" || part == "%U";
    takesFile = takesFile || isFile;
    if (isFile) {
      command << file;
    } else if (!part.startsWith('%')) {
      command << part;
    }
  }
  if (!command.isEmpty() && !takesFile) command << file;
  return command;
}

QStringList TextProgram(const QString& file) {
  const QString name = TextEntry();
  if (name.isEmpty()) return {};
  QFile entry(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, name));
  if (!entry.open(QIODevice::ReadOnly)) return {};
  return CommandOfEntry(QString::fromUtf8(entry.readAll()), file);
}

}  // namespace lomaris

#include "windows/core/help_pages.h"

#include <QFile>
#include <QFileInfo>
#include <QTextDocument>
#include <algorithm>

namespace lomaris {
namespace {

/// Empty when the file cannot be read.
QString TextOfFile(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

HelpPage LoadPage(int topic, const QString& path) {
  QTextDocument document;
  document.setHtml(TextOfFile(path));
  return {topic, path, document.metaInformation(QTextDocument::DocumentTitle),
          document.toPlainText()};
}

}  // namespace

QList<HelpPage> LoadHelpPages(const QString& folder) {
  QList<HelpPage> pages;
  for (const QString& line : TextOfFile(folder + "/topics.txt").split('\n')) {
    const QString topic = line.section(' ', 0, 0);
    const QString path = folder + '/' + line.section(' ', 1).trimmed();
    bool isNumber = false;
    const int number = topic.toInt(&isNumber);
    if (isNumber && QFileInfo(path).isFile()) pages << LoadPage(number, path);
  }
  return pages;
}

QStringList SearchWords(const QString& search) {
  return search.simplified().split(' ', Qt::SkipEmptyParts);
}

bool HoldsAll(const HelpPage& page, const QStringList& words) {
  return std::ranges::all_of(words, [&](const QString& word) {
    return page.Title.contains(word, Qt::CaseInsensitive) ||
           page.Text.contains(word, Qt::CaseInsensitive);
  });
}

}  // namespace lomaris

#include "windows/core/message_text.h"

#include <QStringList>

#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

constexpr QChar kEllipsis(0x2026);
constexpr QChar kMayBreakHere(0x200B);  // a blank of no width

QString WithoutMiddle(const QString& text) {
  constexpr qsizetype kMost = 4000;
  constexpr qsizetype kTail = 800;
  if (text.size() <= kMost) return text;
  return text.left(kMost - kTail) + kEllipsis + text.right(kTail);
}

QString WithoutMiddleLines(const QString& text) {
  constexpr qsizetype kMost = 30;
  constexpr qsizetype kTail = 5;
  const QStringList lines = text.split('\n');
  if (lines.size() <= kMost) return text;
  QStringList shown = lines.first(kMost - kTail);
  shown << kEllipsis << lines.last(kTail);
  return shown.join('\n');
}

QString WithBreaksInWords(const QString& text) {
  constexpr int kLongestWord = 80;  // longer than most paths, which people copy out of a box
  QString shown;
  int length = 0;
  for (const QChar letter : text) {
    length = letter.isSpace() ? 0 : length + 1;
    if (length > kLongestWord && !letter.isLowSurrogate()) {
      shown += kMayBreakHere;
      length = 1;
    }
    shown += letter;
  }
  return shown;
}

}  // namespace

QString MessageText(std::string_view text) {
  QString lines = ToQt(text);
  lines.replace("\r\n", "\n").replace('\r', '\n').remove(QChar::Null);
  return WithBreaksInWords(WithoutMiddleLines(WithoutMiddle(lines)));
}

}  // namespace lomaris

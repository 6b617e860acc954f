#pragma once

#include <QDir>
#include <QTest>
#include <QWidget>
#include <cstdio>

namespace lomaris {

/// Keeps pictures, and the count of those that could not be kept.
class Album {
 public:
  explicit Album(const QString& folder) : folder_(folder) {}

  void Keep(QWidget* widget, const QString& name) {
    QTest::qWait(150);  // what a short timer shows as well
    const QString path = folder_.filePath(name + ".png");
    if (widget != nullptr && widget->grab().save(path)) {
      std::printf("%s\n", qPrintable(path));
      return;
    }
    std::fprintf(stderr, "no picture of %s\n", qPrintable(name));
    ++missing_;
  }

  int Missing() const { return missing_; }

 private:
  QDir folder_;
  int missing_ = 0;
};

}  // namespace lomaris

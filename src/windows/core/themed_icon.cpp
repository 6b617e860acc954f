#include "windows/core/themed_icon.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// The room is a static library, whose resources nobody would call for otherwise.
static void LoadIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace lomaris {
namespace {

QColor TextColour(QIcon::Mode mode) {
  const QPalette palette = QApplication::palette();
  switch (mode) {
    case QIcon::Disabled:
      return palette.color(QPalette::Disabled, QPalette::WindowText);
    case QIcon::Selected:
      return palette.color(QPalette::HighlightedText);
    default:
      return palette.color(QPalette::WindowText);
  }
}

/// Draws an SVG file, each "currentColor" in it in the text colour.
class ThemedIconEngine : public QIconEngine {
 public:
  explicit ThemedIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode, QIcon::State) override {
    QByteArray coloured = drawing_;
    const QByteArray colour = TextColour(mode).name().toLatin1();
    coloured.replace("currentColor", colour);
    // On the highlight of a menu, and when disabled, the accent would be lost or look alive.
    if (mode != QIcon::Normal) coloured.replace(kAccent, colour);
    QSvgRenderer renderer(coloured);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(painter, rectangle);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, picture.rect(), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new ThemedIconEngine(drawing_); }

 private:
  static constexpr const char* kAccent = "#2a8fbd";

  QByteArray drawing_;
};

}  // namespace

QIcon ThemedIcon(const QString& name) {
  LoadIcons();
  QFile file(":/icons/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new ThemedIconEngine(file.readAll()));
}

void SetActionIcons(const QWidget& window, std::span<const ActionIcon> icons) {
  for (const auto& [action, icon] : icons) {
    window.findChild<QAction*>(action)->setIcon(ThemedIcon(icon));
  }
}

}  // namespace lomaris

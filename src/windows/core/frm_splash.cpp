#include "windows/core/frm_splash.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include "core/program.h"
#include "windows/core/qt_text.h"
#include "windows/core/themed_icon.h"

namespace lomaris {
namespace {

constexpr Qt::WindowFlags kFlags = Qt::SplashScreen | Qt::FramelessWindowHint;
constexpr QSize kSplashSize(540, 372);
constexpr int kFooterHeight = 42;
constexpr int kMargin = 20;
constexpr int kTimeOnScreen = 2500;  // ms

}  // namespace

frmSplash::frmSplash() : QWidget(nullptr, kFlags) {
  setWindowTitle(ToQt(kApplicationTitle) + " is starting");
  SetUp(kSplashSize);
  auto* timer = new QTimer(this);
  timer->setObjectName("Timer");
  timer->setSingleShot(true);
  connect(timer, &QTimer::timeout, this, &QWidget::close);
  timer->start(kTimeOnScreen);
}

frmSplash::frmSplash(const QPixmap& picture) : QWidget(nullptr, kFlags), picture_(picture) {
  setWindowTitle(ToQt(kApplicationTitle));
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  const bool fits = picture.size().boundedTo(screen) == picture.size();
  SetUp(fits ? picture.size() : picture.size().scaled(screen, Qt::KeepAspectRatio));
}

void frmSplash::SetUp(QSize size) {
  setObjectName("frmSplash");
  setAttribute(Qt::WA_DeleteOnClose);
  setFixedSize(size);
  QRect place(QPoint(), size);
  place.moveCenter(QGuiApplication::primaryScreen()->availableGeometry().center());
  move(place.topLeft());
  qApp->installEventFilter(this);
}

bool frmSplash::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show && qobject_cast<QDialog*>(watched) != nullptr) close();
  return QWidget::eventFilter(watched, event);
}

void frmSplash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (picture_.isNull()) {
    PaintStart(painter);
  } else {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), picture_);
  }
}

void frmSplash::PaintStart(QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  ThemedIcon("wallpaper").paint(&painter, rect().adjusted(0, 0, 0, -kFooterHeight));

  const QRect footer = rect().adjusted(0, height() - kFooterHeight, 0, 0);
  painter.fillRect(footer, palette().color(QPalette::Window));
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect line = footer.adjusted(kMargin, 0, -kMargin, 0);
  painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft,
                   "Preprocessor of the Tavresk river model");
  painter.drawText(line, Qt::AlignVCenter | Qt::AlignRight, "Version " + ToQt(ProgramVersion()));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void frmSplash::mousePressEvent(QMouseEvent*) {
  close();
}

}  // namespace lomaris

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

constexpr QSize kSplashSize(540, 372);
constexpr int kFooterHeight = 42;
constexpr int kMargin = 20;
constexpr int kTimeOnScreen = 2500;  // ms

}  // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setObjectName("frmSplash");
  setWindowTitle(ToQt(kApplicationTitle) + " is starting");
  setAttribute(Qt::WA_DeleteOnClose);
  setFixedSize(kSplashSize);
  QRect place(QPoint(), kSplashSize);
  place.moveCenter(QGuiApplication::primaryScreen()->availableGeometry().center());
  move(place.topLeft());

  auto* timer = new QTimer(this);
  timer->setObjectName("Timer");
  timer->setSingleShot(true);
  connect(timer, &QTimer::timeout, this, &QWidget::close);
  timer->start(kTimeOnScreen);
  qApp->installEventFilter(this);
}

bool frmSplash::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show && qobject_cast<QDialog*>(watched) != nullptr) close();
  return QWidget::eventFilter(watched, event);
}

void frmSplash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
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

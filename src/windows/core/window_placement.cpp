#include "windows/core/window_placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

/// Larger than any desktop: keeping a position within it leaves the position alone.
constexpr ScreenArea kAnywhere{-1'000'000, -1'000'000, 2'000'000, 2'000'000};

QRect RectangleOf(const WindowPosition& position) {
  return {position.Left / kTwipsPerPixel, position.Top / kTwipsPerPixel,
          position.Width / kTwipsPerPixel, position.Height / kTwipsPerPixel};
}

/// What the frame adds to a window's size; its title bar alone while there is no frame yet.
QSize FrameOf(const QWidget& window) {
  const QSize frame = window.frameGeometry().size() - window.size();
  if (!frame.isNull() || window.isVisible()) return frame;
  return {0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window)};
}

/// The part of the screen that holds most of a stored position, less the window's frame.
ScreenArea AreaFor(const WindowPosition& stored, const QWidget& window) {
  const QRect rectangle = RectangleOf(stored);
  const QScreen* best = QGuiApplication::primaryScreen();
  int most = 0;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QSize shared = screen->availableGeometry().intersected(rectangle).size();
    if (shared.isEmpty() || shared.width() * shared.height() <= most) continue;
    most = shared.width() * shared.height();
    best = screen;
  }
  const QRect area = best->availableGeometry();
  const QSize inside = area.size() - FrameOf(window);
  return {area.x() * kTwipsPerPixel, area.y() * kTwipsPerPixel, inside.width() * kTwipsPerPixel,
          inside.height() * kTwipsPerPixel};
}

}  // namespace

WindowPosition PositionOf(const QWidget& window) {
  const bool isNormal = !window.isMaximized() && !window.isMinimized();
  const QRect place = isNormal ? QRect(window.pos(), window.size()) : window.normalGeometry();
  WindowPosition position{place.x() * kTwipsPerPixel, place.y() * kTwipsPerPixel,
                          place.width() * kTwipsPerPixel, place.height() * kTwipsPerPixel};
  if (window.isMaximized()) position.State = WindowState::Maximised;
  if (window.isMinimized()) position.State = WindowState::Minimised;
  return position;
}

void MoveTo(QWidget& window, const WindowPosition& position) {
  const QRect place = RectangleOf(position);
  window.resize(place.size());
  window.move(place.topLeft());
  constexpr Qt::WindowStates kStates[] = {Qt::WindowNoState, Qt::WindowMinimized,
                                          Qt::WindowMaximized};
  window.setWindowState(kStates[static_cast<std::size_t>(position.State)]);
}

void PlaceWindow(QWidget& window, const Settings& settings, const std::string& section) {
  const WindowPosition stored = StoredPosition(settings, section, PositionOf(window), kAnywhere);
  MoveTo(window, KeepOnScreen(stored, AreaFor(stored, window)));
}

void GetWindowPos(QWidget& window, const Settings& settings, std::string section) {
  if (section.empty()) section = FromQt(window.objectName());
  const WindowPosition current = PositionOf(window);
  const WindowPosition stored = GetWindowPos(settings, section, current, kAnywhere);
  MoveTo(window, GetWindowPos(settings, section, current, AreaFor(stored, window)));
}

void SaveWindowPos(const QWidget& window, Settings& settings, std::string section) {
  if (section.empty()) section = FromQt(window.objectName());
  SaveWindowPos(settings, section, PositionOf(window));
}

void SetTopMostWindow(QWidget& window, bool onTop) {
  const bool wasVisible = window.isVisible();
  window.setWindowFlag(Qt::WindowStaysOnTopHint, onTop);
  if (wasVisible) window.show();  // changed flags hide a window
}

}  // namespace lomaris

#include "windows/spreadsheet/selection_status.h"

#include <QPainter>

#include "spreadsheet/sheet_queries.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

constexpr int kPause = 120;  // milliseconds
constexpr int kMargin = 3;   // pixels

}  // namespace

SelectionStatus::SelectionStatus(const Sheet& sheet, QWidget* parent)
    : QWidget(parent), sheet_(sheet) {
  setObjectName("lblSelection");
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  pause_.setSingleShot(true);
  pause_.setInterval(kPause);
  connect(&pause_, &QTimer::timeout, this, &SelectionStatus::Count);
}

void SelectionStatus::Count() {
  text_ = ToQt(SelectionSummary(sheet_));
  setAccessibleName(text_);
  update();
}

QSize SelectionStatus::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text_), fontMetrics().height() + 2 * kMargin};
}

void SelectionStatus::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect place = rect().adjusted(kMargin, 0, -kMargin, 0);
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(text_, Qt::ElideRight, place.width()));
}

}  // namespace lomaris

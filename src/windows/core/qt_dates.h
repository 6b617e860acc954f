#pragma once

#include <QDateTime>
#include <cmath>

#include "core/dates.h"

namespace lomaris {

/// A date-time of the model for a date picker, to the second, and back. A picker that the user has
/// not touched should not be asked: seconds are coarser than what a file may hold.
inline QDateTime DateToQt(ModelDateTime dateTime) {
  return QDateTime(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC)
      .addSecs(static_cast<qint64>(std::llround(dateTime * 86'400)));
}

inline ModelDateTime DateFromQt(const QDateTime& dateTime) {
  const QDateTime dayZero(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC);
  const QDateTime sameClock(dateTime.date(), dateTime.time(), Qt::UTC);
  return static_cast<double>(dayZero.secsTo(sameClock)) / 86'400;
}

}  // namespace lomaris

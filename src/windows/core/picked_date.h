#pragma once

#include <QDateTimeEdit>

#include "windows/core/qt_dates.h"

namespace lomaris {

/// A date picker and what stands in it: a date that was not touched stays whole, though the picker
/// shows less of it.
struct PickedDate {
  QDateTimeEdit* Picker = nullptr;
  ModelDateTime Date = 0;
  QDateTime Shown = {};

  void Show(ModelDateTime date) {
    Date = date;
    if (Picker->dateTime() != DateToQt(date)) Picker->setDateTime(DateToQt(date));
    Shown = Picker->dateTime();
  }

  ModelDateTime Value() const {
    return Picker->dateTime() == Shown ? Date : DateFromQt(Picker->dateTime());
  }
};

}  // namespace lomaris

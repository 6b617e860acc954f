#pragma once

#include <QApplication>

#include "core/ports/ui.h"

namespace lomaris {

/// The Qt application, and the last net: a failure that the routines behind a window's event let
/// through is reported, and the program goes on with the next event.
class Application : public QApplication {
  Q_OBJECT

 public:
  /// Qt keeps hold of `argc` and `argv`.
  Application(int& argc, char** argv, Ui& ui);

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  Ui& ui_;
};

}  // namespace lomaris

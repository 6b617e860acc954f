#pragma once

#include <limits>
#include <string>

#include "auxiliary/aux_window.h"

namespace lomaris {

/// An editor's window in memory, which writes down what is asked of it.
class FakeAuxWindow : public AuxWindow {
 public:
  std::string Log;  ///< "busy bar locked ... " and so on, in the order of the calls
  int Percent = -1;
  mutable int PollsToCancel = std::numeric_limits<int>::max();  ///< the user closes the window

  void SetBusyPointer(bool busy) override { Log += busy ? "busy " : "idle "; }
  void ShowProgress(bool shown) override { Log += shown ? "bar " : "no-bar "; }
  void SetProgress(int percent) override { Percent = percent; }
  void EnableMainTab(bool enabled) override { Log += enabled ? "free " : "locked "; }
  bool FormCancelled() const override { return --PollsToCancel < 0; }
  void SetFormCancelled() override { PollsToCancel = 0; }
  void Close() override { Log += "closed "; }
};

}  // namespace lomaris

#pragma once

#include "auxiliary/aux_window.h"

namespace lomaris {

/// A window that nobody looks at.
class QuietWindow : public AuxWindow {
 public:
  void SetBusyPointer(bool) override {}
  void ShowProgress(bool) override {}
  void SetProgress(int) override {}
  void EnableMainTab(bool) override {}
  bool FormCancelled() const override { return false; }
  void SetFormCancelled() override {}
  void Close() override {}
};

}  // namespace lomaris

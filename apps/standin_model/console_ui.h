#pragma once

#include <iostream>

#include "core/unattended_ui.h"

namespace lomaris {

/// What is to be shown is printed.
class ConsoleUi : public UnattendedUi {
 public:
  Answer ShowMessage(const MessageBox& box) override {
    std::cout << box.Text << std::endl;
    return UnattendedUi::ShowMessage(box);
  }
};

}  // namespace lomaris

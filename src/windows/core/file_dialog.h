#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "core/ports/ui.h"

namespace lomaris {

/// Shows Qt's file dialog over `parent`. Whole paths of the chosen files, empty when cancelled. A
/// dialog whose answer must have an existing folder says so through `ui` and opens again.
std::vector<std::string> ShowFileDialog(const FileDialog& dialog, QWidget* parent, Ui& ui);

}  // namespace lomaris

#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/ports/ui.h"
#include "model/project_data.h"

namespace lomaris {

/// `text` with the first place that equals `from`, without regard to case, replaced by `to`.
std::string ReplaceFirst(const std::string& text, std::string_view from, std::string_view to);

/// Replaces a text in the file names of the project: its own, the single files and the boundary
/// files of both models, in each name the first place only. Weather files and other files stay.
void ReplaceInFileNames(ProjectData& project, std::string_view from, std::string_view to);

/// Asks what to replace by what, and does it when `mayReplace` then gives true. False when an
/// answer was empty, or it did not.
bool GlobalReplace(ProjectData& project, Ui& ui, const std::function<bool()>& mayReplace);

}  // namespace lomaris

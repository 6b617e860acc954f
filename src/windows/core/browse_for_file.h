#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <string>

#include "core/ports/settings.h"
#include "core/ports/ui.h"

namespace lomaris {

/// Asks for a file to open and writes the choice into a field. Cancelling leaves the field alone.
void BrowseForFile(const std::string& filter, QLineEdit& field, Ui& ui, Settings& settings);

/// The same for a combo box: a list that takes no typing has its selected item replaced by the
/// choice, at the same place and selected; another one has its text set.
void BrowseForFile(const std::string& filter, QComboBox& list, Ui& ui, Settings& settings);

}  // namespace lomaris

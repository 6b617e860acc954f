#include "windows/core/browse_for_file.h"

#include "import/browse_file.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

/// Empty when cancelled.
QString Browse(const std::string& filter, Ui& ui, Settings& settings) {
  BrowseRequest request{.Filter = filter, .Title = "Open"};
  return ToQt(BrowseFile(request, ui, settings));
}

}  // namespace

void BrowseForFile(const std::string& filter, QLineEdit& field, Ui& ui, Settings& settings) {
  const QString file = Browse(filter, ui, settings);
  if (!file.isEmpty()) field.setText(file);
}

void BrowseForFile(const std::string& filter, QComboBox& list, Ui& ui, Settings& settings) {
  const QString file = Browse(filter, ui, settings);
  if (file.isEmpty()) return;
  if (list.isEditable()) {
    list.setEditText(file);
    return;
  }
  const int place = list.currentIndex() < 0 ? list.count() : list.currentIndex();
  list.removeItem(place);
  list.insertItem(place, file);
  list.setCurrentIndex(place);
}

}  // namespace lomaris

#include "windows/core/browse_for_file.h"

#include <QSignalBlocker>

#include "import/browse_file.h"
#include "windows/core/qt_text.h"
#include "workspace/file_slots.h"

namespace lomaris {
namespace {

/// The dialog starts at the file that stands in the control, which is given back when cancelled.
QString Browse(const std::string& filter, const QString& present, Ui& ui, Settings& settings) {
  BrowseRequest request{
      .Filter = filter, .Title = "Open", .FileName = NameBeforeRemark(FromQt(present))};
  const std::vector<std::string> chosen = BrowseFiles(request, ui, settings);
  return chosen.empty() ? present : ToQt(chosen.front());
}

}  // namespace

void BrowseForFile(const std::string& filter, QLineEdit& field, Ui& ui, Settings& settings) {
  const QString file = Browse(filter, field.text(), ui, settings);
  if (file != field.text()) field.setText(file);
}

void BrowseForFile(const std::string& filter, QComboBox& list, Ui& ui, Settings& settings) {
  const QString file = Browse(filter, list.currentText(), ui, settings);
  if (file == list.currentText()) return;
  if (list.isEditable()) {
    list.setEditText(file);
    return;
  }
  const int place = list.currentIndex() < 0 ? list.count() : list.currentIndex();
  {
    const QSignalBlocker quiet(list);  // the row between is nobody's choice
    list.removeItem(place);
    list.insertItem(place, file);
    list.setCurrentIndex(-1);
  }
  list.setCurrentIndex(place);
}

}  // namespace lomaris

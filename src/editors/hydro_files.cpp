// What the hydrodynamic editor does with the files that belong to the network.

#include "core/files.h"
#include "editors/hydro_desk.h"
#include "editors/typed_values.h"
#include "import/browse_file.h"

namespace lomaris {
namespace {

struct FileField {
  const char* Kind;
  int Slot;  ///< of the project window
  std::string HydroForm::*Name;
};

/// In the order of `NetworkFile`.
constexpr FileField kFileFields[] = {{"LAT", 2, &HydroForm::LatFile},
                                     {"WIT", 3, &HydroForm::WitFile},
                                     {"XSG", 4, &HydroForm::XSGFile}};

const FileField& FieldOf(NetworkFile file) {
  return kFileFields[static_cast<int>(file)];
}

}  // namespace

/// A file of the kind that a slot of the project window takes; `field` names the one at hand. Empty
/// when cancelled.
std::string HydroDesk::AskForFile(int slot, const std::string& field) {
  BrowseRequest request{.Filter = around_.SharedTables.FileFilter[slot],
                        .Title = "Select Existing File",
                        .FileName = FileIn(field)};
  const auto chosen = BrowseFiles(request, around_.Screen, around_.Store);
  return chosen.empty() ? std::string() : chosen.front();
}

/// A name as other windows understand it: they look beside the project, not beside a file that is
/// in none.
std::string HydroDesk::PathOf(const std::string& name) const {
  return own_ ? FindFile(name, Project().FileName).value_or(name) : name;
}

bool HydroDesk::OffersEdit(NetworkFile file) const {
  const FileField& field = FieldOf(file);
  return around_.Windows.OffersEditor(field.Kind) &&
         FindFile(FileIn(view_.Form().*field.Name), Project().FileName);
}

void HydroDesk::EditFile(NetworkFile file) {
  if (!OffersEdit(file)) return;
  Run("btnBrowse_Click", [&] {
    const FileField& field = FieldOf(file);
    around_.Windows.FileEdit({.FileName = PathOf(FileIn(view_.Form().*field.Name)),
                              .Kind = field.Kind,
                              .Slot = field.Slot});
    return true;
  });
}

void HydroDesk::SelectFile(NetworkFile file) {
  Run("btnBrowseSelect_Click", [&] {
    const FileField& field = FieldOf(file);
    HydroForm form = view_.Form();
    const std::string chosen = AskForFile(field.Slot, form.*field.Name);
    if (chosen.empty()) return false;
    form.*field.Name = chosen;
    ShowForm(form);
    Edited();
    return true;
  });
}

}  // namespace lomaris

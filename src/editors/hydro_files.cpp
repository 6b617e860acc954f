// What the hydrodynamic editor does with the files that belong to the network.

#include "editors/field_files.h"
#include "editors/hydro_desk.h"

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

bool HydroDesk::OffersEdit(NetworkFile file) const {
  const FileField& field = FieldOf(file);
  return CanEdit(around_, field.Kind, view_.Form().*field.Name, Project().FileName);
}

void HydroDesk::EditFile(NetworkFile file) {
  if (!OffersEdit(file)) return;
  Run("btnBrowse_Click", [&] {
    const FileField& field = FieldOf(file);
    around_.Windows.FileEdit(RequestFor(field.Kind, field.Slot, view_.Form().*field.Name,
                                        Project().FileName, IsAside()));
    return true;
  });
}

void HydroDesk::SelectFile(NetworkFile file) {
  Run("btnBrowseSelect_Click", [&] {
    const FileField& field = FieldOf(file);
    HydroForm form = view_.Form();
    const std::string chosen = AskForFile(around_, field.Slot, form.*field.Name);
    if (chosen.empty()) return false;
    form.*field.Name = chosen;
    ShowForm(form);
    Edited();
    return true;
  });
}

}  // namespace lomaris

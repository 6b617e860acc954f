#include "editors/field_files.h"

#include "core/files.h"
#include "editors/typed_values.h"
#include "import/browse_file.h"

namespace lomaris {

std::string AskForFile(const EditorSurroundings& around, int slot, const std::string& field,
                       const std::string& title) {
  BrowseRequest request{
      .Filter = around.SharedTables.FileFilter[slot], .Title = title, .FileName = FileIn(field)};
  const auto chosen = BrowseFiles(request, around.Screen, around.Store);
  return chosen.empty() ? std::string() : chosen.front();
}

bool CanEdit(const EditorSurroundings& around, const std::string& kind, const std::string& field,
             const std::string& projectFile) {
  return around.Windows.OffersEditor(kind) && FindFile(FileIn(field), projectFile);
}

EditRequest RequestFor(const std::string& kind, int slot, const std::string& field,
                       const std::string& projectFile, bool aside) {
  std::string name = FileIn(field);
  if (aside) name = FindFile(name, projectFile).value_or(name);
  return {.FileName = name, .Kind = kind, .Slot = slot, .Aside = aside};
}

}  // namespace lomaris

#include "editors/saving.h"

#include "core/save_file.h"
#include "model/file_names.h"
#include "model/input_file.h"

namespace lomaris {

std::string NameToSaveUnder(const std::string& name, const FileStamp& onDisk, bool saveAs,
                            int filter, const std::string& projectFile,
                            const EditorSurroundings& around) {
  if (saveAs || name.empty()) {
    return SaveFile(around.SharedTables.FileFilter[filter], {}, 0, "Save As", projectFile,
                    around.Screen, around.Store);
  }
  return MayOverwrite(name, onDisk, projectFile, around.Screen) ? name : std::string();
}

bool NamesAnother(const std::string& projects, const std::string& name,
                  const std::string& projectFile) {
  return !name.empty() && NamesAFile(projects) && projects != name &&
         !SameFile(projects, name, projectFile);
}

}  // namespace lomaris

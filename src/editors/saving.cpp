#include "editors/saving.h"

#include "core/save_file.h"
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

}  // namespace lomaris

#include "core/profile.h"

#define SI_NO_CONVERSION   // text is UTF-8 on both sides
#define SI_IMPLEMENTATION  // the bodies of the templates
#include <SimpleIni.h>

#include "core/encoding.h"
#include "core/files.h"
#include "core/text.h"

namespace lomaris {

void PutProfileString(const std::string& file, const std::string& section, const std::string& key,
                      const std::string& value, const std::string& oldValue) {
  if (value == oldValue) return;
  CSimpleIniA profile;  // readers of a profile ignore the case of its names
  profile.SetSpaces(false);
  const std::string path = TargetPath(file);
  if (FindFile(path)) {
    const std::string content = TextFromFile(ReadWholeFile(path));
    if (profile.LoadData(content) < 0) {
      throw RuntimeError(ErrorNumber::PathFileAccess, path + " is not a text profile");
    }
  }
  std::string content;
  if (profile.SetValue(section.c_str(), key.c_str(), JoinLines(value).c_str()) < 0 ||
      profile.Save(content) < 0) {
    throw RuntimeError(ErrorNumber::OutOfMemory);
  }
  const std::string unixLines = ReplaceAll(content, "\r\n", "\n");
  WriteWholeFile(path, ReplaceAll(unixLines, "\n", kLineBreak), Backup::None);
}

}  // namespace lomaris

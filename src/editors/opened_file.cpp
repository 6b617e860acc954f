#include "editors/opened_file.h"

namespace lomaris {

void OpenedFile::Note(const std::string& name, const std::string& besideFile) {
  name_ = name;
  stamp_ = StampOf(name, besideFile);
}

bool OpenedFile::MayOverwrite(const std::string& name, const std::string& besideFile,
                              Ui& ui) const {
  const FileStamp now = StampOf(name, besideFile);
  if (name != name_ || now == FileStamp() || now == stamp_) return true;
  return ui.ShowMessage({.Text = "File " + name +
                                 " has been changed since it was opened here, by another window or "
                                 "another program.\r\n\r\nDo you want to replace what it says "
                                 "now?",
                         .Title = "Warning",
                         .BoxIcon = Icon::Warning,
                         .BoxButtons = Buttons::YesNo,
                         .DefaultAnswer = Answer::No}) == Answer::Yes;
}

}  // namespace lomaris

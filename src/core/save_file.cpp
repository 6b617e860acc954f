#include "core/save_file.h"

#include "core/files.h"
#include "core/text.h"

namespace lomaris {

std::string DefaultExtension(const std::string& filter) {
  constexpr std::string_view kMark = "|*.";
  const std::size_t mark = filter.find(kMark);
  if (mark == std::string::npos) return {};
  const std::size_t start = mark + kMark.size();
  std::string extension = filter.substr(start, filter.find('|', start) - start);
  return extension.find('*') == std::string::npos ? extension : std::string();
}

void RememberFolder(Settings& settings, const std::string& fileName) {
  const std::string folder = FolderOf(fileName);
  const std::string extension = UpperCase(ExtensionOf(fileName));
  if (!folder.empty() && !extension.empty()) settings.SetValue("BrowseDir", extension, folder);
}

Answer AskToSaveChanges(const std::string& what, Ui& ui) {
  return ui.ShowMessage({.Text = "Save changes to " + what + "?",
                         .Title = "Lomaris",
                         .BoxIcon = Icon::Question,
                         .BoxButtons = Buttons::YesNoCancel});
}

std::string SaveFile(const std::string& filter, const std::string& defaultName, unsigned flags,
                     const std::string& title, const std::string& projectFile, Ui& ui,
                     Settings& settings) {
  const std::string extension = DefaultExtension(filter);
  FileDialog dialog{
      .Title = title,
      .Filter = filter + "All files (*.*)|*.*",
      .DefaultExtension = extension,
      .InitialDirectory = FolderOf(projectFile),
      .FileName = defaultName.empty() ? "*." + extension : defaultName,
      .Flags = flags | kOverwritePrompt | kPathMustExist | kExtensionDifferent,
      .SaveMode = true,
  };
  for (;;) {
    const std::vector<std::string> answer = ui.AskFile(dialog);
    if (answer.empty()) return {};
    if (extension.empty() || EqualIgnoringCase(ExtensionOf(answer.front()), extension)) {
      RememberFolder(settings, answer.front());
      return answer.front();
    }
    ui.ShowMessage(
        {.Text = "You must save the file with a file extension of " + extension, .Title = "Error"});
  }
}

}  // namespace lomaris

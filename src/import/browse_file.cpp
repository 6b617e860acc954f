#include "import/browse_file.h"

#include "core/files.h"
#include "core/program.h"
#include "core/save_file.h"

namespace lomaris {
namespace {

constexpr std::string_view kAllTables = "(All Database Tables)";
constexpr std::string_view kAllTablesFilter =
    "All Supported Formats|*.bmd;*.db;*.dbf;*.mdb;*.xls;*.wk3;*.txt;*.csv;*.gdc;*.odc|"
    "Paradox (KORB) Table (*.db)|*.db|"
    "Binary Modeling File (*.bmd)|*.bmd|"
    "dBase Table (*.dbf)|*.dbf|"
    "Access Database (*.mdb)|*.mdb|"
    "Excel Spreadsheet (*.xls)|*.xls|"
    "Lotus Spreadsheet (*.wk3)|*.wk3|"
    "Tab-delimited Text (*.txt)|*.txt|"
    "Comma-delimited Text (*.csv)|*.csv|"
    "Database Connection File (*.gdc)|*.gdc|"
    "Office Data Source (*.odc)|*.odc|"
    "All Files (*.*)|*.*";

/// Where the last dialog ended, for the next one.
constexpr const char* kBrowseDir = "BrowseDir";

}  // namespace

std::vector<std::string> BrowseFiles(BrowseRequest& request, Ui& ui, Settings& settings) {
  if (request.Filter == kAllTables) request.Filter = kAllTablesFilter;
  const std::string programSection(kApplicationTitle);
  const std::string initialFolder = FolderOf(request.FileName);
  // A file that is to be opened must exist; of one that is to be saved, the folder.
  const std::vector<std::string> chosen = ui.AskFile({
      .Title = request.Title,
      .Filter = request.Filter,
      .DefaultExtension = DefaultExtension(request.Filter),
      .InitialDirectory =
          initialFolder.empty() ? settings.Value(programSection, kBrowseDir) : initialFolder,
      .FileName = request.FileName,
      .Flags = request.Flags | (request.SaveMode ? kPathMustExist : kFileMustExist) |
               (request.MultiSelect ? kAllowMultiSelect : 0U),
      .SaveMode = request.SaveMode,
  });
  if (!chosen.empty()) {
    settings.SetValue(programSection, kBrowseDir, FolderOf(chosen.front()));
    RememberFolder(settings, chosen.front());
  }
  return chosen;
}

std::string BrowseFile(BrowseRequest& request, Ui& ui, Settings& settings) {
  const std::vector<std::string> chosen = BrowseFiles(request, ui, settings);
  return chosen.empty() ? request.FileName : chosen.front();
}

}  // namespace lomaris

#include "model/name_mismatches.h"

#include <fmt/format.h>

#include "core/files.h"
#include "core/run_time_error.h"
#include "core/text.h"
#include "model/input_file.h"

namespace lomaris {

void NameMismatches::Add(const std::string& name, const std::string& networksName) {
  if (fileName_.empty()) {
    MakeReport();
    ui_.ShowMessage(
        {.Text = fmt::format(
             "The cross section named {} found in this Water Quality input file does not match the "
             "name of the corresponding cross section name in the Hydrodynamic input file: {}. "
             "Tavresk does not required these names to match in order to run correctly. However,  "
             "it is highly recommended that they do match to avoid errors in interpretation of "
             "model results.\r\n\r\nThere may be other name mismatches between these two files; "
             "however, this message will not be repeated for each occurrence. A complete list can "
             "be found in the file named {}",
             Shown(name), networksName, fileName_),
         .Title = "Warning",
         .BoxIcon = Icon::Warning});
  }
  AppendLine(list_,
             fmt::format("Cross section name mismatch; QNP: {}; HNP:{}", name, networksName));
}

void NameMismatches::MakeReport() {
  for (const std::string& folder : folders_) {
    fileName_ = TargetPath(folder + kMismatchReport);
    try {
      WriteWholeFile(fileName_, "", Backup::None);
      return;
    } catch (const RuntimeError&) {
      continue;  // an installed program's folder, for one
    }
  }
}

void NameMismatches::Close() {
  if (list_.empty()) return;
  try {
    WriteWholeFile(fileName_, std::move(list_), Backup::None);
  } catch (const RuntimeError& error) {
    ui_.ShowMessage({.Text = "The list of cross section names that do not match could not be "
                             "written to a file.\r\n\r\n" +
                             error.Description(),
                     .Title = "Warning",
                     .BoxIcon = Icon::Warning});
  }
}

}  // namespace lomaris

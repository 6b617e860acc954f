#include "workspace/status_texts.h"

#include <algorithm>
#include <iterator>

#include "core/text.h"

namespace lomaris {
namespace {

struct StatusRow {
  std::string_view Path;
  std::string_view Text;
};

// Save As and Save and Close carry each other's text: manuals and training notes quote them so, and
// so they stay.
constexpr StatusRow kStatusRows[] = {
    {"File", "Create, open, save, and print this file"},
    {"File|New...", "Create a new project using wizard"},
    {"File|Open...", "Open an existing project"},
    {"File|Close", "Close current project (you will be prompted to save changes if applicable)"},
    {"File|Save", "Save current document, overwriting file"},
    {"File|Save As...", "Save current document, overwriting file, and close form"},
    {"File|Save and Close", "Save current document and provide a new name"},
    {"File|Build File",
     "Build new Auxiliary file using these import specifications (you will be prompted for a new "
     "filename)"},
    {"File|Create Input File", "Create a new, empty input file and open editor"},
    {"File|Create Input File|Hydrodynamic Input...",
     "Create a new, empty Hydrodynamic input file and open editor"},
    {"File|Create Input File|Water Quality Input...",
     "Create a new, empty Water Quality input file and open editor"},
    {"File|Create Input File|Cross Section Library...",
     "Create a new, empty Cross Section Library file and open editor"},
    {"File|Create Input File|Lateral Inflows...",
     "Create a new, empty Lateral Inflow file and open editor"},
    {"File|Create Input File|Withdrawals...",
     "Create a new, empty Withdrawal file and open editor"},
    {"File|Create Input File|Boundary Conditions...",
     "Create a new, empty Boundary Condition file and open editor"},
    {"File|Create Input File|Heat Loads...",
     "Create a new, empty Heat Load (POW) file and open editor"},
    {"File|Create Input File|Meteorologic...",
     "Create a new, empty Meteorologic file and open editor"},
    {"File|Build Input File", "Build a new input file by importing data from another file"},
    {"File|Build Input File|Hydrodynamic Input...",
     "Build a new Hydrodynamic input file from a HEC-RAS or HEC-2 file"},
    {"File|Build Input File|Water Quality Input...",
     "Build a new Water Quality input file from an HNP file"},
    {"File|Build Input File|Cross Section Library...",
     "Build a new Cross Section Library file from a HEC-RAS or HEC-2 file"},
    {"File|Build Input File|Lateral Inflows...",
     "Build a new Lateral Inflow file with imported time series data"},
    {"File|Build Input File|Withdrawals...",
     "Build a new Withdrawal file with imported time series data"},
    {"File|Build Input File|Boundary Conditions...",
     "Build a new Boundary Condition file with imported time series data"},
    {"File|Build Input File|Heat Loads...",
     "Build a new Heat Load (POW) file with imported time series data"},
    {"File|Build Input File|Meteorologic...",
     "Build a new Meteorologic file with imported time series data"},
    {"File|Open Input File",
     "Open an existing input file (which does not have to referenced in this project)"},
    {"File|Open Input File|Hydrodynamic Input...", "Open an existing Hydrodynamic input file"},
    {"File|Open Input File|Water Quality Input...", "Open an existing Water Quality input file"},
    {"File|Open Input File|Cross Section Library...",
     "Open an existing Cross Section Library file"},
    {"File|Open Input File|Lateral Inflows...", "Open an existing Lateral Inflow file"},
    {"File|Open Input File|Withdrawals...", "Open an existing Withdrawal file"},
    {"File|Open Input File|Boundary Conditions...", "Open an existing Boundary Condition file"},
    {"File|Open Input File|Heat Loads...", "Open an existing Heat Load (POW) file"},
    {"File|Open Input File|Meteorologic...", "Open an existing Meteorologic file"},
    {"File|Print...", "Print contents of this file to specified printer"},
    {"File|Exit Lomaris", "Exit application (you will be prompted to save changes if applicable)"},
    {"Edit", "Edit selected text"},
    {"Edit|Cut", "Cut Selection to Clipboard"},
    {"Edit|Copy", "Copy Selection to Clipboard"},
    {"Edit|Paste", "Paste Contents of Clipboard"},
    {"Edit|Preferences...", "Specify preferences for importing data and running other programs"},
    {"Edit|Browse KORB Table", "Select KORB Table file and place in appropriate column of grid"},
    {"Edit|View KORB Table", "View contents of KORB Table on currently selected line in grid"},
    {"Run", "Run other applications"},
    {"Run|Vesk-H", "Run the TavreskH application"},
    {"Run|Vesk-Q", "Run the TavreskQ application"},
    {"Run|Post-Processor", "Run the Post Processor application"},
    {"Run|KORB", "Run the Korb Data Store application"},
    {"Help", "Get help on Lomaris"},
    {"Help|Contents  Index", "Display the contents page of the help system"},
    {"Help|What's This?",
     "Changes mouse pointer, click on any form item to get context-sensitive help"},
    {"Help|Tavresk Web Site", "Launch default Internet browser and go to Tavresk web site"},
    {"Help|Mail Tech Support", "Send email to technical support (preprocessor issues only)"},
    {"Help|About", "Display program information and credits"},
};

constexpr std::string_view kProjectText = "Open this previously saved Project file";

bool IsProjectFile(std::string_view path) {
  constexpr std::string_view kExtension = ".prj";
  return path.size() >= kExtension.size() &&
         EqualIgnoringCase(path.substr(path.size() - kExtension.size()), kExtension);
}

}  // namespace

std::string_view StatusText(std::string_view path) {
  const auto row = std::find_if(std::begin(kStatusRows), std::end(kStatusRows),
                                [&](const StatusRow& each) { return each.Path == path; });
  if (row != std::end(kStatusRows)) return row->Text;
  return IsProjectFile(path) ? kProjectText : std::string_view();
}

}  // namespace lomaris

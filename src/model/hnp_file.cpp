#include "model/hnp_file.h"

#include <limits>
#include <set>
#include <unordered_map>

#include <fmt/format.h>

#include "model/boundary_list.h"
#include "model/file_names.h"
#include "model/input_file.h"
#include "model/step_table.h"

namespace lomaris {
namespace {

/// Three lines of a cross section, each empty but for its end.
constexpr std::size_t kShortestXSect = 3;

/// Of all branches. Error 6 when the total has no place in the record.
std::int16_t TotalXSects(const HydroInput& hydro) {
  std::int64_t total = 0;
  for (int i = 1; i <= hydro.BranchCount; ++i) total += hydro.Branches[i].XSectCount;
  if (total > std::numeric_limits<std::int16_t>::max()) {
    throw RuntimeError(ErrorNumber::Overflow, fmt::format("{} cross sections", total));
  }
  return static_cast<std::int16_t>(total);
}

// --- Reading

/// The first character of the next line, a blank for none. A type is a plain letter: any other
/// character would be cut in half here.
char ReadType(ReaderState& in) {
  const std::string type = ReadName(in);
  if (type.empty()) return ' ';
  return static_cast<unsigned char>(type.front()) < 0x80 ? type.front() : '?';
}

/// An empty file is an empty record; one that breaks off in its head is none.
void ReadHead(ReaderState& in, HydroInput& hydro, Ui& ui) {
  if (in.AtEnd()) return;
  double total = 0;  // whatever it says: it is summed anew
  DateFields start;
  DateFields end;
  in.ReadLine(hydro.Title);
  in.ReadCountedLine(total, hydro.BranchCount, start.Year, start.Month, start.Day, start.Hour,
                     end.Year, end.Month, end.Day, end.Hour, hydro.SeedYear);
  CheckedCount(hydro.BranchCount, kMostBranches);
  hydro.StartDate = ComposedDate(start, ui);
  hydro.EndDate = ComposedDate(end, ui);
  in.ReadCountedLine(hydro.Beta, hydro.Gravity, hydro.MileAtBottom, hydro.Theta, hydro.Tolerance);
  ReadStepTable(in, hydro.PrintStepCount, hydro.PrintSteps, ui);
  ReadStepTable(in, hydro.TimeStepCount, hydro.TimeSteps, ui);
}

void ReadXSect(ReaderState& in, XSectRec& xsect) {
  xsect.Name = ReadName(in);
  xsect.Lookup = ReadName(in);
  in.ReadCountedLine(xsect.Length, xsect.Flow, xsect.Depth, xsect.Lateral, xsect.Invert, xsect.C1,
                     xsect.C2, xsect.C3, xsect.ManningN, xsect.Loss, xsect.N1, xsect.N2,
                     xsect.Print);
}

void ReadBranch(ReaderState& in, BranchRec& branch) {
  branch.Name = ReadName(in);
  branch.USType = ReadType(in);
  branch.DSType = ReadType(in);
  in.ReadCountedLine(branch.XSectCount, branch.DSBranch, branch.DSXSect, branch.USValue,
                     branch.DSValue, branch.DSAngle);
  branch.XSects = BoundedArray<XSectRec>(1, in.Plausible(branch.XSectCount, kShortestXSect));
  for (XSectRec& xsect : branch.XSects) ReadXSect(in, xsect);
}

/// Returns the numbers of the branches, which address the records.
std::set<int> ReadNetwork(ReaderState& in, HydroInput& hydro,
                          const BoundedArray<BranchBCFiles>& boundaryFiles) {
  std::set<int> numbers;
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    std::int16_t number = 0;
    in.ReadCountedLine(number);
    numbers.insert(number);
    BranchRec& branch = hydro.Branches[number];
    branch = {};
    ReadBranch(in, branch);
    branch.USFile = boundaryFiles[i].Upstream;
    branch.DSFile = boundaryFiles[i].Downstream;
  }
  hydro.XSectCount = TotalXSects(hydro);
  return numbers;
}

/// A branch number that stands twice, or beyond the count of branches, leaves a gap in the network,
/// and the next save would write the gap. That is told as soon as the file has been read.
void TellOfGaps(const HydroInput& hydro, const std::set<int>& numbers, Ui& ui) {
  if (static_cast<int>(numbers.size()) == hydro.BranchCount &&
      (numbers.empty() || *numbers.rbegin() == hydro.BranchCount)) {
    return;
  }
  ui.ShowMessage(
      {.Text = fmt::format("The branches of file {} are not numbered from 1 to {}, each number "
                           "once. Branches are missing from the network that was read; do not save "
                           "it over this file before the numbers have been corrected.",
                           hydro.FileName, hydro.BranchCount),
       .Title = "Warning",
       .BoxIcon = Icon::Warning});
}

/// Puts the names behind the branches into the records. A file may end before them.
void TakeFilesNames(ReaderState& in, HydroInput& hydro, ProjectData& project, Ui& ui) {
  ProjectData named;
  try {
    if (!in.AtEnd()) {
      ReadBoundaryList(in, named.BCFilesH, named.BCCountH, ui);
      named.LatFileH = NormaliseFileName(in.ReadRawLine(), true);
      named.WitFileH = NormaliseFileName(in.ReadRawLine(), true);
      named.XSGFileH = NormaliseFileName(in.ReadRawLine(), true);
    }
  } catch (const RuntimeError&) {
    TellNamesUnreadable(in, ui);
  }
  named.BCFilesH.Resize(kMostBranches);
  project.BCFilesH = std::move(named.BCFilesH);
  project.BCCountH = named.BCCountH;
  project.LatFileH = std::move(named.LatFileH);
  project.WitFileH = std::move(named.WitFileH);
  project.XSGFileH = std::move(named.XSGFileH);
  GiveBoundaryFiles(hydro, project.BCFilesH);
}

// --- Writing

/// True, having told it, when two cross sections have the same name, as the file would hold it.
bool HasDuplicateName(const HydroInput& hydro, Ui& ui) {
  struct Place {
    int Branch;
    int XSect;
  };
  std::unordered_map<std::string, Place> first;
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    for (int j = 1; j <= hydro.Branches[i].XSectCount; ++j) {
      const std::string& name = hydro.Branches[i].XSects[j].Name;
      const auto [entry, isNew] = first.try_emplace(TrimField(name), Place{i, j});
      if (isNew) continue;
      const auto [k, l] = entry->second;
      ui.ShowMessage(
          {.Text = fmt::format("Cross section {} ({}) in branch {} ({}) was also found in branch "
                               "{} ({}), cross section {}.\r\n\r\nDuplicate cross section names "
                               "are not allowed.",
                               j, TrimField(name), i, hydro.Branches[i].Name, k,
                               hydro.Branches[k].Name, l),
           .Title = "Error"});
      return true;
    }
  }
  return false;
}

void AppendHead(std::string& out, const HydroInput& hydro, Ui& ui) {
  const DateFields start = BrokenUpDate(hydro.StartDate, ui);
  const DateFields end = BrokenUpDate(hydro.EndDate, ui);
  AppendLine(out, Trim(JoinLines(hydro.Title)));
  AppendRow(out, TotalXSects(hydro), hydro.BranchCount, start.Year, start.Month, start.Day,
            start.Hour, end.Year, end.Month, end.Day, end.Hour, hydro.SeedYear);
  AppendRow(out, hydro.Beta, hydro.Gravity, hydro.MileAtBottom, hydro.Theta, hydro.Tolerance);
  AppendStepTable(out, hydro.PrintStepCount, hydro.PrintSteps, ui);
  AppendStepTable(out, hydro.TimeStepCount, hydro.TimeSteps, ui);
}

void AppendXSect(std::string& out, const XSectRec& xsect) {
  AppendLine(out, TrimField(xsect.Name));
  AppendLine(out, TrimField(xsect.Lookup));
  AppendRow(out, xsect.Length, xsect.Flow, xsect.Depth, xsect.Lateral, xsect.Invert, xsect.C1,
            xsect.C2, xsect.C3, xsect.ManningN, xsect.Loss, xsect.N1, xsect.N2,
            std::int16_t{xsect.Print});
}

void AppendBranch(std::string& out, int number, const BranchRec& branch) {
  AppendLine(out, PrintedNumber(number));
  AppendLine(out, TrimField(branch.Name));
  AppendLine(out, {&branch.USType, 1});
  AppendLine(out, {&branch.DSType, 1});
  AppendRow(out, branch.XSectCount, branch.DSBranch, branch.DSXSect, branch.USValue, branch.DSValue,
            branch.DSAngle);
  for (int i = 1; i <= branch.XSectCount; ++i) AppendXSect(out, branch.XSects[i]);
}

std::string HydroText(const HydroInput& hydro, Ui& ui) {
  std::string out;
  AppendHead(out, hydro, ui);
  for (int i = 1; i <= hydro.BranchCount; ++i) AppendBranch(out, i, hydro.Branches[i]);
  AppendBoundaryList(out, BoundaryFiles(hydro), hydro.BranchCount);
  AppendLine(out, FileNameLine(hydro.LatFile));
  AppendLine(out, FileNameLine(hydro.WitFile));
  AppendLine(out, FileNameLine(hydro.XSGFile));
  return out;
}

// --- The project's names after a save

void TakeNames(ProjectData& project, const HydroInput& hydro) {
  bool changed = TakeBoundaryFiles(project.BCFilesH, BoundaryFiles(hydro));
  project.BCCountH = hydro.BranchCount;
  changed |= TakeName(project.LatFileH, NormaliseFileName(hydro.LatFile, true));
  changed |= TakeName(project.WitFileH, NormaliseFileName(hydro.WitFile, true));
  changed |= TakeName(project.XSGFileH, NormaliseFileName(hydro.XSGFile, true));
  if (changed) project.Dirty = true;
}

}  // namespace

bool LoadHNPFile(HydroInput& hydro, ProjectData& project, Ui& ui, const std::string& fileName,
                 NamesFrom names) {
  const std::string name(Trim(fileName));
  if (name.empty()) return true;
  const auto path = FindInputFile("Hydrodynamic file", name, project.FileName, ui);
  if (!path) return true;

  HydroInput loaded;
  ProjectData named = project;
  named.BCFilesH.Resize(kMostBranches);
  loaded.OnDisk = StampOf(*path);
  std::set<int> numbers;
  const bool read = ReadInputFile(*path, name, ui, [&](ReaderState& in) {
    ReadHead(in, loaded, ui);
    numbers = ReadNetwork(in, loaded, named.BCFilesH);
    if (names == NamesFrom::File) TakeFilesNames(in, loaded, named, ui);
    return true;
  });
  if (!read) return false;
  loaded.FileName = name;
  loaded.HydroLoaded = true;
  loaded.LatFile = named.LatFileH;
  loaded.WitFile = named.WitFileH;
  loaded.XSGFile = named.XSGFileH;
  hydro = std::move(loaded);
  project = std::move(named);
  TellOfGaps(hydro, numbers, ui);
  return true;
}

bool SaveHNPFile(HydroInput& hydro, ProjectData& project, Ui& ui, const std::string& fileName) {
  const std::string name(Trim(fileName));
  const auto format = [&]() -> std::optional<std::string> {
    if (HasDuplicateName(hydro, ui)) return std::nullopt;
    return HydroText(hydro, ui);
  };
  if (!WriteInputFile(name, project.FileName, "SaveHNPFile", ui, format)) return false;
  hydro.Dirty = false;
  hydro.FileName = name;
  hydro.OnDisk = StampOf(name, project.FileName);
  hydro.XSectCount = TotalXSects(hydro);
  TakeNames(project, hydro);
  return true;
}

}  // namespace lomaris

#include "model/qnp_file.h"

#include <array>
#include <numeric>
#include <set>

#include <fmt/format.h>

#include "core/files.h"
#include "model/boundary_list.h"
#include "model/input_file.h"
#include "model/name_list.h"
#include "model/name_mismatches.h"
#include "model/step_table.h"
#include "model/value_group.h"

namespace lomaris {
namespace {

constexpr std::array kGlobalLines = {5, 5, 5, 5, 1, 4, 5, 3, 3};
constexpr std::array kBypassLines = {kQualConstituents};
constexpr std::array kBranchLines = {2, 2, 3, 2, 4, 3, 3, 5, 5, 4, 4, 2, 2, 1, 1};
constexpr std::array kConcLines = {12, 4};
constexpr std::array kXSectLines = {2, 4, 3, 4, 5};

template <std::size_t size>
constexpr int SumOf(const std::array<int, size>& lines) {
  return std::reduce(lines.begin(), lines.end());
}
static_assert(SumOf(kGlobalLines) == kGlobalKinetics);
static_assert(SumOf(kBranchLines) == kBranchKinetics && kWindReaeration == kBranchKinetics);
static_assert(SumOf(kConcLines) == kQualConstituents);
static_assert(SumOf(kXSectLines) == kXSectKinetics);

// --- Reading

constexpr const char* kAdvice =
    "The branches and cross sections of a Water Quality input file are those of the Hydrodynamic "
    "input file, in number and order. If the network has been changed since, load the Hydrodynamic "
    "input file that this file was made for, or build a new Water Quality input file.";

/// Whether a branch begins here: the file has no counts that would tell.
bool BeginsWithBranch(std::string_view text) {
  if (!IsNumeric(TrimField(CutLine(text)))) return false;
  CutLine(text);
  return BeginsWithGroup(text, kBranchLines);
}

bool BeginsWithXSect(std::string_view text) {
  constexpr std::array kPrintLine = {1};
  CutLine(text);
  return BeginsWithGroup(text, kPrintLine) && BeginsWithGroup(text, kConcLines) &&
         BeginsWithGroup(text, kConcLines) && BeginsWithGroup(text, kXSectLines);
}

/// Reads one open file into a record.
class QualReader {
 public:
  QualReader(ReaderState& in, QualInput& qual, const HydroInput& hydro, NameMismatches& mismatches,
             Ui& ui)
      : in_(in), qual_(qual), hydro_(hydro), mismatches_(mismatches), ui_(ui) {}

  /// Up to the first branch.
  void ReadHead() {
    in_.ReadCountedLine(qual_.Title);
    DateFields start;
    DateFields end;
    in_.ReadCountedLine(start.Year, start.Month, start.Day, start.Hour, end.Year, end.Month,
                        end.Day, end.Hour);
    qual_.StartDate = ComposedDate(start, ui_);
    qual_.EndDate = ComposedDate(end, ui_);
    Reading([&] { return "in the global kinetics."; },
            [&] { ReadGroup(in_, kGlobalLines, qual_.GlobalKinetics, ui_); });
    ReadStepTable(in_, qual_.PrintStepCount, qual_.PrintSteps, ui_);
    Reading([&] { return "in the bypass flags."; },
            [&] { ReadGroup(in_, kBypassLines, qual_.Bypass, ui_); });
  }

  /// False, having told it, for a network that has no water quality.
  bool ReadBranches(const std::function<void(int percent)>& setProgress) {
    qual_.BranchCount = hydro_.BranchCount;
    for (int i = 1; i <= qual_.BranchCount; ++i) {
      if (!ReadBranch(ReadNumber())) return false;
      if (setProgress) setProgress(100 * i / qual_.BranchCount);
    }
    if (BeginsWithBranch(in_.Rest())) {
      throw NetworkChanged(
          fmt::format("this file has more branches than the {} of the network", qual_.BranchCount));
    }
    return true;
  }

 private:
  static RuntimeError NetworkChanged(const std::string& how) {
    return RuntimeError(ErrorNumber::SubscriptOutOfRange, how + ".\r\n\r\n" + kAdvice);
  }

  /// Runs a step; its failure says where it happened, which the record knows better than the file.
  template <class Where, class Step>
  static void Reading(Where where, Step step) {
    try {
      step();
    } catch (const RuntimeError& error) {
      throw WithMore(error, std::string("This happened ") + where());
    }
  }

  std::string NameOfBranch(int number) const {
    return fmt::format("branch {} ({})", number, hydro_.Branches[number].Name);
  }

  int FirstMissing() const {
    int number = 1;
    while (numbers_.contains(number)) ++number;
    return number;
  }

  std::int16_t ReadNumber() {
    std::int16_t number = 0;
    Reading(
        [&] {
          return fmt::format("where {} should begin. {}", NameOfBranch(FirstMissing()), kAdvice);
        },
        [&] {
          const bool isBranch = BeginsWithBranch(in_.Rest());
          number = ToInteger(TrimField(in_.ReadRawLine()));
          CheckNumber(number, isBranch);
        });
    return number;
  }

  /// A number that came before would leave a branch without its values. The count of boundary files
  /// is taken for a number where branches are missing.
  void CheckNumber(int number, bool isBranch) {
    const bool isKnown = number >= 1 && number <= qual_.BranchCount;
    if (isKnown && numbers_.insert(number).second) return;
    std::string what = "no branch begins here";
    if (isBranch && isKnown) what = NameOfBranch(number) + " comes a second time";
    if (isBranch && !isKnown) {
      what = fmt::format("{} is not within 1 to {}", number, qual_.BranchCount);
    }
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange, what);
  }

  bool ReadBranch(int number) {
    QualBranchRec& branch = qual_.Branches[number];
    Reading([&] { return fmt::format("in the kinetics of {}. {}", NameOfBranch(number), kAdvice); },
            [&] {
              branch.Name = ReadName(in_);
              ReadGroup(in_, kBranchLines, branch.BranchKinetics, ui_);
            });
    branch.XSectCount = hydro_.Branches[number].XSectCount;
    if (branch.XSectCount < kFewestXSects) {
      TellTooFewXSects(ui_);
      return false;
    }
    ReadXSects(number, branch);
    return true;
  }

  void ReadXSects(int number, QualBranchRec& branch) {
    branch.XSects.Resize(branch.XSectCount);
    for (int i = 1; i <= branch.XSectCount; ++i) {
      if (BeginsWithBranch(in_.Rest())) {
        throw NetworkChanged(
            fmt::format("{} has {} cross sections in this file and {} in the network",
                        NameOfBranch(number), i - 1, branch.XSectCount));
      }
      ReadXSect(branch.XSects[i], number, i);
    }
    if (BeginsWithXSect(in_.Rest())) {
      throw NetworkChanged(
          fmt::format("{} has more cross sections in this file than the {} of the network",
                      NameOfBranch(number), branch.XSectCount));
    }
  }

  void ReadXSect(QualXSectRec& xsect, int number, int place) {
    const std::string& networksName = hydro_.Branches[number].XSects[place].Name;
    const char* part = "name";
    Reading(
        [&] {
          return fmt::format("in the {} of cross section {} ({}) of {}. {}", part, place,
                             networksName, NameOfBranch(number), kAdvice);
        },
        [&] {
          xsect.Name = ReadName(in_);
          in_.ReadCountedLine(xsect.Print);
          part = "initial concentrations";
          ReadGroup(in_, kConcLines, xsect.InitialConc, ui_);
          part = "lateral concentrations";
          ReadGroup(in_, kConcLines, xsect.LateralConc, ui_);
          part = "kinetics";
          ReadGroup(in_, kXSectLines, xsect.XSectKinetics, ui_);
        });
    if (xsect.Name != networksName) mismatches_.Add(xsect.Name, networksName);
  }

  ReaderState& in_;
  QualInput& qual_;
  const HydroInput& hydro_;
  NameMismatches& mismatches_;
  Ui& ui_;
  std::set<int> numbers_;  ///< of the branches so far
};

/// Puts the names behind the branches into the project. A file may end before them.
void TakeFilesNames(ReaderState& in, ProjectData& project, Ui& ui) {
  ProjectData named;
  try {
    if (!in.AtEnd()) {
      ReadBoundaryList(in, named.BCFilesQ, named.BCCountQ, ui);
      ReadNameList(in, named.MetCount, named.MetFiles);
      named.LatFileQ = NormaliseFileName(in.ReadRawLine(), true);
      named.PowFileQ = NormaliseFileName(in.ReadRawLine(), true);
    }
  } catch (const RuntimeError&) {
    TellNamesUnreadable(in, ui);
  }
  named.BCFilesQ.Resize(kMostBranches);
  project.BCFilesQ = std::move(named.BCFilesQ);
  project.BCCountQ = named.BCCountQ;
  project.MetCount = named.MetCount;
  project.MetFiles = std::move(named.MetFiles);
  project.LatFileQ = std::move(named.LatFileQ);
  project.PowFileQ = std::move(named.PowFileQ);
}

void TakeProjectsNames(QualInput& qual, const ProjectData& project) {
  GiveBoundaryFiles(qual, project.BCFilesQ);
  qual.MetCount = project.MetCount;
  qual.MetFiles = project.MetFiles;
  qual.LatFile = project.LatFileQ;
  qual.PowFile = project.PowFileQ;
}

/// Where the report of name mismatches of a file may go, the first choice first.
std::vector<std::string> ReportFolders(const std::string& name, const std::string& path,
                                       const std::string& programFolder) {
  if (programFolder.empty() || !FolderOf(name).empty()) return {FolderOf(path)};
  return {programFolder + "/", FolderOf(path)};
}

// --- Writing

void AppendHead(std::string& out, const QualInput& qual, Ui& ui) {
  const DateFields start = BrokenUpDate(qual.StartDate, ui);
  const DateFields end = BrokenUpDate(qual.EndDate, ui);
  AppendLine(out, Trim(JoinLines(qual.Title)));
  AppendRow(out, start.Year, start.Month, start.Day, start.Hour, end.Year, end.Month, end.Day,
            end.Hour);
  AppendGroup(out, kGlobalLines, qual.GlobalKinetics);
  AppendStepTable(out, qual.PrintStepCount, qual.PrintSteps, ui);
  AppendGroup(out, kBypassLines, qual.Bypass);
}

void AppendXSect(std::string& out, const QualXSectRec& xsect) {
  AppendLine(out, TrimField(xsect.Name));
  AppendRow(out, std::int16_t{xsect.Print});
  AppendGroup(out, kConcLines, xsect.InitialConc);
  AppendGroup(out, kConcLines, xsect.LateralConc);
  AppendGroup(out, kXSectLines, xsect.XSectKinetics);
}

void AppendBranch(std::string& out, int number, const QualBranchRec& branch) {
  AppendLine(out, PrintedNumber(number));
  AppendLine(out, TrimField(branch.Name));
  AppendGroup(out, GroupLayout(kBranchLines).first(kBranchLines.size() - 1), branch.BranchKinetics);
  AppendLine(out, branch.BranchKinetics[kWindReaeration] != 0 ? ".TRUE." : ".FALSE.");
  for (int i = 1; i <= branch.XSectCount; ++i) AppendXSect(out, branch.XSects[i]);
}

std::string QualText(const QualInput& qual, Ui& ui) {
  std::string out;
  AppendHead(out, qual, ui);
  for (int i = 1; i <= qual.BranchCount; ++i) AppendBranch(out, i, qual.Branches[i]);
  AppendBoundaryList(out, BoundaryFiles(qual), qual.BranchCount);
  AppendNameList(out, qual.MetCount, qual.MetFiles);
  AppendLine(out, FileNameLine(qual.LatFile));
  AppendLine(out, FileNameLine(qual.PowFile));
  return out;
}

/// The project's names after a save.
void TakeNames(ProjectData& project, const QualInput& qual) {
  bool changed = TakeBoundaryFiles(project.BCFilesQ, BoundaryFiles(qual));
  project.BCCountQ = qual.BranchCount;
  changed |= project.MetCount != qual.MetCount;
  project.MetCount = qual.MetCount;
  for (int i = 1; i <= kMostMetFiles; ++i) {
    const bool inUse = i <= qual.MetCount;
    changed |= TakeName(project.MetFiles[i], inUse ? qual.MetFiles[i] : std::string());
  }
  changed |= TakeName(project.LatFileQ, NormaliseFileName(qual.LatFile, true));
  changed |= TakeName(project.PowFileQ, NormaliseFileName(qual.PowFile, true));
  if (changed) project.Dirty = true;
}

}  // namespace

bool LoadQNPFile(QualInput& qual, ProjectData& project, const HydroInput& hydro, Ui& ui,
                 const std::string& fileName, const QualLoad& how) {
  const std::string name(Trim(fileName));
  if (name.empty() || name == kNewQualFile) return true;
  const auto path = FindInputFile("Water Quality file", name, project.FileName, ui);
  if (!path) return true;

  QualInput loaded;
  loaded.OnDisk = StampOf(*path);
  ProjectData named = project;
  named.BCFilesQ.Resize(kMostBranches);
  NameMismatches mismatches(ui, ReportFolders(name, *path, how.ProgramFolder));
  const bool read = ReadInputFile(*path, name, ui, [&](ReaderState& in) {
    QualReader reader(in, loaded, hydro, mismatches, ui);
    reader.ReadHead();
    if (!reader.ReadBranches(how.SetProgress)) return false;
    if (how.Names == NamesFrom::File) TakeFilesNames(in, named, ui);
    return true;
  });
  mismatches.Close();
  if (!read) return false;
  loaded.FileName = name;
  TakeProjectsNames(loaded, named);
  qual = std::move(loaded);
  project = std::move(named);
  return true;
}

void TellTooFewXSects(Ui& ui) {
  ui.ShowMessage({.Text = "You must have at least 3 cross sections in your hydrodynamic "
                          "model.\r\nCorrect the hydrodynamic model configuration (or load an "
                          "appropriate, compatible Hydrodynamic Input File).",
                  .Title = "Error"});
}

bool SaveQNPFile(QualInput& qual, ProjectData& project, Ui& ui, const std::string& fileName) {
  const std::string name(Trim(fileName));
  const auto format = [&] { return QualText(qual, ui); };
  if (!WriteInputFile(name, project.FileName, "SaveQNPFile", ui, format)) return false;
  qual.Dirty = false;
  qual.FileName = name;
  qual.OnDisk = StampOf(name, project.FileName);
  TakeNames(project, qual);
  return true;
}

}  // namespace lomaris

#include "model/prj_file.h"

#include <array>

#include "core/error_report.h"
#include "core/files.h"
#include "model/boundary_list.h"
#include "model/input_file.h"
#include "model/name_list.h"

namespace lomaris {
namespace {

constexpr std::string_view kHydroFile = "HYDRODYNAMIC_INPUT_FILE:";
constexpr std::string_view kQualFile = "WATER_QUALITY_INPUT_FILE:";
constexpr std::string_view kAuxiliaryH = "VESKH_AUXILLARY_FILES:";
constexpr std::string_view kAuxiliaryQ = "VESKQ_AUXILLARY_FILES:";
constexpr std::string_view kDescription = "PROJECT_DESCRIPTION:";
constexpr std::string_view kOtherFiles = "OTHER_FILES:";

/// Reads the sections of one open project file into a record.
class ProjectReader {
 public:
  ProjectReader(ReaderState& in, ProjectData& project, Ui& ui)
      : in_(in), project_(project), ui_(ui) {}

  /// Reads all sections. What the user answered to the last failure: Abort or Retry, which end the
  /// reading, or Ignore, also when there was none.
  Answer ReadSections(Trap& trap) {
    while (!in_.AtEnd()) {
      try {
        ReadSection();
      } catch (const std::exception&) {
        if constexpr (DebugMode) throw;
        const Answer answer = trap.Report(CurrentRuntimeError());
        if (answer != Answer::Ignore) return answer;
      }
    }
    return Answer::Ignore;
  }

 private:
  struct Section {
    std::string_view Keyword;
    void (ProjectReader::*Read)(std::string_view behindKeyword);
  };
  static const std::array<Section, 6> kSections;

  /// Reads a line and, where it opens a section, the section.
  void ReadSection() {
    std::string line;
    in_.ReadLine(line);
    line = TrimField(line);
    for (const Section& section : kSections) {
      const std::size_t length = section.Keyword.size();
      if (!EqualIgnoringCase(std::string_view(line).substr(0, length), section.Keyword)) continue;
      return (this->*section.Read)(std::string_view(line).substr(length));
    }
  }

  std::string ReadFileName() {
    std::string name;
    in_.ReadLine(name);
    return NormaliseFileName(name, true);
  }

  void ReadHydroFile(std::string_view name) { project_.HydroFile = NormaliseFileName(name, true); }
  void ReadQualFile(std::string_view name) { project_.QualFile = NormaliseFileName(name, true); }

  void ReadAuxiliaryH(std::string_view) {
    ReadBoundaryList(in_, project_.BCFilesH, project_.BCCountH, ui_);
    project_.LatFileH = ReadFileName();
    project_.WitFileH = ReadFileName();
    project_.XSGFileH = ReadFileName();
  }

  void ReadAuxiliaryQ(std::string_view) {
    ReadBoundaryList(in_, project_.BCFilesQ, project_.BCCountQ, ui_);
    ReadNameList(in_, project_.MetCount, project_.MetFiles);
    project_.LatFileQ = ReadFileName();
    project_.PowFileQ = ReadFileName();
  }

  void ReadDescription(std::string_view) { in_.ReadLine(project_.Description); }

  /// The keyword must stand alone: older files have lines that go on behind it, which are not this
  /// section. The names are not taken over, since nothing but the list's length was ever kept.
  void ReadOtherFiles(std::string_view behindKeyword) {
    if (!behindKeyword.empty()) return;
    std::int16_t count = 0;
    in_.ReadLine(count);
    project_.OtherCount = CheckedCount(count, kMostOtherFiles);
    for (int i = 0; i < count; ++i) in_.ReadRawLine();
  }

  ReaderState& in_;
  ProjectData& project_;
  Ui& ui_;
};

const std::array<ProjectReader::Section, 6> ProjectReader::kSections = {{
    {kHydroFile, &ProjectReader::ReadHydroFile},
    {kQualFile, &ProjectReader::ReadQualFile},
    {kAuxiliaryH, &ProjectReader::ReadAuxiliaryH},
    {kAuxiliaryQ, &ProjectReader::ReadAuxiliaryQ},
    {kDescription, &ProjectReader::ReadDescription},
    {kOtherFiles, &ProjectReader::ReadOtherFiles},
}};

void AppendKeyword(std::string& out, std::string_view keyword, std::string_view name) {
  out.append(keyword).append(" ");
  AppendLine(out, name);
}

std::string ProjectText(const ProjectData& project) {
  std::string out;
  // The model programs take an empty name here for none, not "NULL".
  AppendKeyword(out, kHydroFile,
                NamesAFile(project.HydroFile) ? FileNameLine(project.HydroFile) : std::string());
  AppendKeyword(out, kQualFile, FileNameLine(project.QualFile));

  AppendLine(out, kAuxiliaryH);
  AppendBoundaryList(out, project.BCFilesH, project.BCCountH);
  AppendLine(out, FileNameLine(project.LatFileH));
  AppendLine(out, FileNameLine(project.WitFileH));
  AppendLine(out, FileNameLine(project.XSGFileH));
  AppendLine(out, "");

  AppendLine(out, kAuxiliaryQ);
  AppendBoundaryList(out, project.BCFilesQ, project.BCCountQ);
  AppendNameList(out, project.MetCount, project.MetFiles);
  AppendLine(out, FileNameLine(project.LatFileQ));
  AppendLine(out, FileNameLine(project.PowFileQ));
  AppendLine(out, "");

  AppendLine(out, kDescription);
  AppendLine(out, Trim(JoinLines(project.Description)));
  AppendLine(out, "");

  AppendLine(out, kOtherFiles);
  AppendNameList(out, project.OtherCount, project.OtherFiles);
  AppendLine(out, "");
  return out;
}

}  // namespace

bool LoadPRJFile(ProjectData& project, Ui& ui, const std::string& fileName) {
  const std::string name(Trim(fileName));
  const std::optional<std::string> path = FindFile(name);
  if (!path) {
    ui.ShowMessage({.Text = "Project file " + name + " not found.", .Title = "Error"});
    return false;
  }
  Trap trap(ui, "LoadPRJFile");
  for (;;) {
    ProjectData loaded;
    loaded.FileName = name;
    Answer answer = Answer::Abort;
    trap.Run([&] {
      ReaderState in(ui, *path);
      answer = ProjectReader(in, loaded, ui).ReadSections(trap);
    });
    if (answer == Answer::Abort) return false;
    if (answer == Answer::Retry) continue;
    project = std::move(loaded);
    return true;
  }
}

bool SavePRJFile(ProjectData& project, Ui& ui, const std::string& fileName) {
  const std::string name(Trim(fileName));
  if (!WriteInputFile(name, {}, "SavePRJFile", ui, [&] { return ProjectText(project); })) {
    return false;
  }
  project.Dirty = false;
  return true;
}

}  // namespace lomaris

#include "model/prj_file.h"

#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

constexpr char kSample[] =
    "HYDRODYNAMIC_INPUT_FILE: river.hnp\r\n"
    "WATER_QUALITY_INPUT_FILE: NULL\r\n"
    "VESKH_AUXILLARY_FILES:\r\n"
    " 3 \r\n"
    "1\t-1\t-3\r\n"
    "head.bcf\r\n"
    "tail.bcf\r\n"
    "weir 3.bcf\r\n"
    "lat.lat\r\n"
    "NULL\r\n"
    "shapes.xsg\r\n"
    "\r\n"
    "VESKQ_AUXILLARY_FILES:\r\n"
    " 0 \r\n"
    "\r\n"
    " 2 \r\n"
    "Ca\xF1on.met\r\n"
    "b.met\r\n"
    "NULL\r\n"
    "plant.pow\r\n"
    "\r\n"
    "PROJECT_DESCRIPTION:\r\n"
    "First; second; \r\n"
    "\r\n"
    "OTHER_FILES:\r\n"
    " 2 \r\n"
    "\r\n"
    "\r\n"
    "\r\n";

ProjectData SampleProject() {
  ProjectData project;
  project.FileName = "a.prj";
  project.Description = "First\r\nsecond\n";
  project.HydroFile = " river.hnp ";
  project.QualFile = "none";
  project.LatFileH = "lat.lat";
  project.XSGFileH = "shapes.xsg";
  project.PowFileQ = "plant.pow";
  project.MetCount = 2;
  project.MetFiles[1] = "Ca\u00F1on.met";
  project.MetFiles[2] = "b\r\n.met";
  project.BCCountH = 3;
  project.BCFilesH[1] = {"head.bcf", "tail.bcf"};
  project.BCFilesH[3] = {"(not specified)", "weir 3.bcf"};
  project.OtherCount = 2;
  return project;
}

/// The sample as it comes back from a file.
ProjectData SampleRead() {
  ProjectData project = SampleProject();
  project.Description = "First; second;";
  project.HydroFile = "river.hnp";
  project.QualFile = project.WitFileH = project.LatFileQ = "(Not Specified)";
  project.MetFiles[2] = "b.met";
  project.BCFilesH[3].Upstream.clear();
  return project;
}

TEST(ProjectFile, HasItsLayoutAndComesBack) {
  const TempFolder folder;
  ScriptedUi ui;
  ProjectData project = SampleProject();
  project.Dirty = true;
  ASSERT_TRUE(SavePRJFile(project, ui, " a.prj "));
  EXPECT_EQ(folder.Read("a.prj"), kSample);
  EXPECT_FALSE(project.Dirty);

  ProjectData read;
  read.Dirty = true;
  read.OtherFiles[1] = read.BCFilesQ[20].Upstream = "of an earlier project";
  ASSERT_TRUE(LoadPRJFile(read, ui, " A.PRJ "));
  read.FileName = "a.prj";
  EXPECT_EQ(read, SampleRead());
  EXPECT_TRUE(ui.Messages.empty());
}

TEST(ProjectFile, AnEmptyProjectIsTheSameAfterLoadAndSave) {
  const TempFolder folder;
  ScriptedUi ui;
  ProjectData project;
  ASSERT_TRUE(SavePRJFile(project, ui, "a.prj"));
  const std::string first = folder.Read("a.prj");
  EXPECT_THAT(first, testing::StartsWith("HYDRODYNAMIC_INPUT_FILE: \r\n"));
  ASSERT_TRUE(LoadPRJFile(project, ui, "a.prj"));
  ASSERT_TRUE(SavePRJFile(project, ui, "a.prj"));
  EXPECT_EQ(folder.Read("a.prj"), first);
}

TEST(ProjectFile, TakesSectionsInAnyOrderAndCaseAndSkipsOtherLines) {
  const TempFolder folder;
  ScriptedUi ui;
  folder.Write("a.prj",
               "made by hand\n"
               "other_files: 3\n"
               "Other_Files:\n2\nx.txt\ny.txt\n"
               "VeskQ_Auxillary_Files: of the quality side\n0\n\n 2\nCa\xF1on.met\nb.met\n"
               "NONE\nplant.pow\n"
               "  project_description: follows\n First; second; \n"
               "hydrodynamic_input_file:river.hnp\n"
               "veskh_auxillary_files:\n3\n 1  -1\t-3 \nhead.bcf\ntail.bcf\n weir 3.bcf\n"
               "lat.lat\n\nshapes.xsg\n"
               "water_quality_input_file: null");
  ProjectData project;
  ASSERT_TRUE(LoadPRJFile(project, ui, "a.prj"));
  EXPECT_EQ(project, SampleRead());
}

TEST(ProjectFile, KeepsOneBackupGeneration) {
  const TempFolder folder;
  ScriptedUi ui;
  folder.Write("a.bak", "older");
  ProjectData project;
  for (const char* description : {"first", "second", "third"}) {
    project.Description = description;
    ASSERT_TRUE(SavePRJFile(project, ui, "a.prj"));
  }
  EXPECT_THAT(folder.Read("a.bak"), HasSubstr("second"));
  EXPECT_THAT(folder.Read("a.prj"), HasSubstr("third"));
  EXPECT_EQ(folder.Entries(), "a.bak a.prj");
}

TEST(ProjectFile, AFailedSaveIsReportedAndLeavesTheProjectDirty) {
  for (const char* name : {"ab", "", "nowhere/a.prj"}) {
    const TempFolder folder;
    ScriptedUi ui;
    ui.Answers = {Answer::Retry, Answer::Ignore};
    ProjectData project;
    project.Dirty = true;
    EXPECT_FALSE(SavePRJFile(project, ui, name)) << name;
    EXPECT_TRUE(project.Dirty);
    EXPECT_THAT(ui.LastMessage(), HasSubstr("\"SavePRJFile\" of Module \"modCommon\""));
    EXPECT_EQ(folder.Entries(), "");
  }
}

TEST(ProjectFile, IsToldToBeMissing) {
  const TempFolder folder;
  for (const std::string name : {"", "gone.prj"}) {
    ScriptedUi ui;
    ProjectData project = SampleProject();
    EXPECT_FALSE(LoadPRJFile(project, ui, name + " "));
    EXPECT_EQ(ui.LastMessage(), "Project file " + name + " not found.");
    EXPECT_EQ(ui.Messages.back().Title, "Error");
    EXPECT_EQ(project, SampleProject());
  }
}

struct BadSection {
  const char* Name;
  const char* Text;
  const char* Message;
};

class BadProjectFile : public testing::TestWithParam<BadSection> {};

TEST_P(BadProjectFile, IsLeftByAbortAndSkippedByIgnore) {
  const TempFolder folder;
  folder.Write("a.prj", std::string(GetParam().Text) + "\r\nPROJECT_DESCRIPTION:\r\nfound\r\n");
  ScriptedUi ui;
  ui.Answers = {Answer::Abort};
  ProjectData project = SampleProject();
  EXPECT_FALSE(LoadPRJFile(project, ui, "a.prj"));
  EXPECT_EQ(project, SampleProject());
  EXPECT_THAT(ui.LastMessage(), HasSubstr(GetParam().Message));
  EXPECT_THAT(ui.LastMessage(), HasSubstr("\"LoadPRJFile\" of Module"));

  ui.Answers = {Answer::Ignore};
  EXPECT_TRUE(LoadPRJFile(project, ui, "a.prj"));
  EXPECT_EQ(project.Description, "found");
  EXPECT_TRUE(SavePRJFile(project, ui, "b.prj"));
}

INSTANTIATE_TEST_SUITE_P(
    ProjectFile, BadProjectFile,
    testing::Values(
        BadSection{"BranchZero", "VESKH_AUXILLARY_FILES:\n1\n0\na.bcf",
                   "Error 9 (Subscript out of range: 0 is not within 1 to 20)"},
        BadSection{"BranchBeyond", "VESKH_AUXILLARY_FILES:\n1\n-21\na.bcf", "Error 9 ("},
        BadSection{"TooFewNumbers", "VESKQ_AUXILLARY_FILES:\n2\n1\na.bcf\nb.bcf", "Error 9 ("},
        BadSection{"NegativeCount", "VESKQ_AUXILLARY_FILES:\n-2\n1\n",
                   "Error 9 (Subscript out of range: -2 is not within 0 to 40)"},
        BadSection{"NoNumber", "VESKQ_AUXILLARY_FILES:\n1\nx\na.bcf",
                   "Error 13 (Type mismatch: \"x\" is not a number)"},
        BadSection{"WeatherFilesBeyond", "VESKQ_AUXILLARY_FILES:\n0\n\n6\n", "Error 9 ("},
        BadSection{"OtherFilesBeyond", "OTHER_FILES:\n51\n", "Error 9 ("}),
    [](const auto& row) { return row.param.Name; });

TEST(ProjectFile, CutOffAnywhereIsReadOrReported) {
  const TempFolder folder;
  const std::string sample = kSample;
  for (std::size_t size = 0; size < sample.size(); ++size) {
    folder.Write("a.prj", sample.substr(0, size));
    ScriptedUi ui;
    ui.Answers = {Answer::Abort, Answer::Abort, Answer::Abort};
    ProjectData project = SampleProject();
    if (LoadPRJFile(project, ui, "a.prj")) continue;
    EXPECT_EQ(project, SampleProject());
    EXPECT_THAT(ui.LastMessage(), HasSubstr("Input past end of file"));
  }
}

/// Mends the file while the report is on the screen.
class MendingUi : public ScriptedUi {
 public:
  std::function<void()> Mend;
  Answer ShowMessage(const MessageBox& box) override {
    Mend();
    return ScriptedUi::ShowMessage(box);
  }
};

TEST(ProjectFile, IsReadAnewByRetry) {
  const TempFolder folder;
  folder.Write("a.prj",
               "PROJECT_DESCRIPTION:\nof the bad file\nVESKH_AUXILLARY_FILES:\n1\n30\na.bcf\n");
  MendingUi ui;
  ui.Mend = [&] { folder.Write("a.prj", "VESKH_AUXILLARY_FILES:\n1\n3\na.bcf\n"); };
  ui.Answers = {Answer::Retry};
  ProjectData project;
  EXPECT_TRUE(LoadPRJFile(project, ui, "a.prj"));
  EXPECT_EQ(project.BCFilesH[3].Upstream, "a.bcf");
  EXPECT_EQ(project.Description, "");
}

}  // namespace
}  // namespace lomaris

#include "model/prj_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

constexpr char kSample[] =
    "HYDRODYNAMIC_INPUT_FILE: river.hnp\r\nWATER_QUALITY_INPUT_FILE: NULL\r\n"
    "VESKH_AUXILLARY_FILES:\r\n 3 \r\n1\t-1\t-3\r\nhead.bcf\r\ntail.bcf\r\nweir 3.bcf\r\n"
    "lat.lat\r\nNULL\r\nshapes.xsg\r\n\r\n"
    "VESKQ_AUXILLARY_FILES:\r\n 0 \r\n\r\n 2 \r\nCa\xF1on.met\r\nb.met\r\nNULL\r\nplant.pow\r\n\r\n"
    "PROJECT_DESCRIPTION:\r\nFirst; second;\r\n\r\n"
    "OTHER_FILES:\r\n 2 \r\n\r\n\r\n\r\n";

/// The record of the sample file.
ProjectData SampleProject() {
  ProjectData project;
  project.FileName = "a.prj";
  project.Description = "First; second;";
  project.HydroFile = "river.hnp";
  project.LatFileH = "lat.lat";
  project.XSGFileH = "shapes.xsg";
  project.QualFile = project.WitFileH = project.LatFileQ = "(Not Specified)";
  project.PowFileQ = "plant.pow";
  project.MetCount = 2;
  project.MetFiles[1] = "Ca\u00F1on.met";
  project.MetFiles[2] = "b.met";
  project.BCCountH = 3;
  project.BCFilesH[1] = {"head.bcf", "tail.bcf"};
  project.BCFilesH[3].Downstream = "weir 3.bcf";
  project.OtherCount = 2;
  return project;
}

class ProjectFile : public testing::Test {
 protected:
  bool Load(const std::string& text) {
    folder_.Write("a.prj", text);
    return LoadPRJFile(project_, ui_, " a.prj ");
  }

  TempFolder folder_;
  ScriptedUi ui_;
  ProjectData project_ = SampleProject();
};

TEST_F(ProjectFile, HasItsLayoutAndComesBack) {
  project_.Description = "First\r\nsecond\n";
  project_.HydroFile = " river.hnp ";
  project_.QualFile = "none";
  project_.MetFiles[2] = "b\r\n.met";
  project_.BCFilesH[3].Upstream = "(not specified)";
  project_.Dirty = true;
  ASSERT_TRUE(SavePRJFile(project_, ui_, " a.prj "));
  EXPECT_EQ(folder_.Read("a.prj"), kSample);
  EXPECT_FALSE(project_.Dirty);

  project_.OtherFiles[1] = project_.BCFilesQ[20].Upstream = "of an earlier project";
  ASSERT_TRUE(Load(kSample));
  EXPECT_EQ(project_, SampleProject());

  // One backup generation; an empty name of this one file, which the model programs ask for.
  for (const char* name : {"NULL", "", "b.hnp"}) {
    project_.HydroFile = name;
    ASSERT_TRUE(SavePRJFile(project_, ui_, "a.prj"));
  }
  EXPECT_EQ(folder_.Read("a.bak"), ReplaceAll(kSample, " river.hnp", " "));
  EXPECT_EQ(folder_.Read("a.prj"), ReplaceAll(kSample, "river", "b"));
  EXPECT_EQ(folder_.Entries(), "a.bak a.prj");
  EXPECT_TRUE(ui_.Messages.empty());
}

TEST_F(ProjectFile, TakesSectionsInAnyOrderAndCaseAndSkipsOtherLines) {
  project_ = {};
  ASSERT_TRUE(Load(
      "made by hand\nother_files: 3\nOther_Files:\n2\nx.txt\ny.txt\n"
      "VeskQ_Auxillary_Files: of the quality side\n0\n\n 2\nCa\xF1on.met\nb.met\nNONE\nplant.pow\n"
      "  project_description: follows\n First; second; \nhydrodynamic_input_file:river.hnp\n"
      "\tveskh_auxillary_files:\n3\n 1  -1\t-3 \nhead.bcf\n\ttail.bcf\n weir 3.bcf\n"
      "lat.lat\n\nshapes.xsg\nwater_quality_input_file: null"));
  EXPECT_EQ(project_, SampleProject());
}

TEST_F(ProjectFile, AFailureIsReportedAndLeavesTheRecord) {
  project_.Dirty = true;
  const ProjectData before = project_;
  for (const char* name : {"ab", "", "nowhere/a.prj"}) {
    ui_.Answers = {Answer::Retry, Answer::Ignore};
    EXPECT_FALSE(SavePRJFile(project_, ui_, name)) << name;
    EXPECT_THAT(ui_.LastMessage(), HasSubstr("\"SavePRJFile\" of Module \"modCommon\""));
  }
  for (const std::string name : {"", "gone.prj"}) {
    EXPECT_FALSE(LoadPRJFile(project_, ui_, name + " "));
    EXPECT_EQ(ui_.LastMessage(), "Project file " + name + " not found.");
  }
  EXPECT_EQ(folder_.Entries(), "");
  ui_.Answers = {Answer::Abort};
  EXPECT_FALSE(Load("VESKH_AUXILLARY_FILES:\n2\n1\t-1\na.bcf\n"));
  EXPECT_THAT(ui_.LastMessage(), HasSubstr("Error 62 (Input past end of file: the file ends"));
  EXPECT_EQ(project_, before);
}

TEST_F(ProjectFile, ABadSectionIsLeftByAbortAndSkippedByIgnore) {
  const std::string subscript = "9 (Subscript out of range: ";
  const std::pair<std::string, std::string> rows[] = {
      {"H_AUXILLARY_FILES:\n1\n-21\na.bcf", subscript + "21 is not within 1 to 20)"},
      {"Q_AUXILLARY_FILES:\n2\n1\na.bcf\nb.bcf", subscript + "2 is not within 1 to 1)"},
      {"Q_AUXILLARY_FILES:\n-2\n1\n", subscript + "-2 is not within 0 to 40)"},
      {"Q_AUXILLARY_FILES:\n1\nx\na.bcf", "13 (Type mismatch: \"x\" is not a number)"},
      {"Q_AUXILLARY_FILES:\n0\n\n6\n", subscript + "6 is not within 0 to 5)"},
      {"X\nOTHER_FILES:\n51\n", subscript + "51 is not within 0 to 50)"}};
  for (const auto& [section, message] : rows) {
    const std::string text = "VESK" + section + "\r\n";
    project_ = SampleProject();
    ui_.Answers = {Answer::Retry, Answer::Abort};
    EXPECT_FALSE(Load(text)) << section;
    EXPECT_TRUE(ui_.Answers.empty()) << "Retry reads anew";
    EXPECT_EQ(project_, SampleProject());
    EXPECT_THAT(ui_.LastMessage(), HasSubstr("Error " + message + " in procedure \"LoadPRJFile\""));
    ui_.Answers = {Answer::Ignore};
    EXPECT_TRUE(Load(text + "PROJECT_DESCRIPTION:\r\nfound\r\n"));
    EXPECT_EQ(project_.Description, "found");
  }
}

}  // namespace
}  // namespace lomaris

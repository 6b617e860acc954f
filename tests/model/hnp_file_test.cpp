#include "model/hnp_file.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

constexpr char kSample[] =
    "Lower Tavresk; at Ca\xF1on\r\n"
    "4\t2\t1997\t5\t1\t0\t1997\t5\t31\t13.5\t1996\r\n"
    "1\t32.17\t12.5\t0.6\t0.01\r\n"
    " 1 \r\n"
    "1997\t5\t1\t0\t0.25\r\n"
    " 2 \r\n"
    "1997\t5\t1\t0\t300\r\n"
    "1997\t5\t2\t6.333333\t1E-05\r\n"
    " 1 \r\n"
    "Main\r\n"
    "Q\r\n"
    "R\r\n"
    "3\t0\t0\t100.25\t1.234568E+07\t0.5\r\n"
    "M 1\r\n"
    "SHAPE1\r\n"
    "1000\t20\t3.5\t0\t-1.25\t1\t2\t3\t0.035\t0.1\t0.04\t0.001\t1\r\n"
    "M2\r\n"
    "SHAPE1\r\n"
    "0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\r\n"
    "M3\r\n"
    "SHAPE2\r\n"
    "0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t1\r\n"
    " 2 \r\n"
    "Side\r\n"
    "H\r\n"
    "Q\r\n"
    "1\t1\t2\t0\t0\t45\r\n"
    "m2\r\n"
    "S\r\n"
    "0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\r\n"
    " 2 \r\n"
    "1\t-2\r\n"
    "head.bcf\r\n"
    "tail.bcf\r\n"
    "lat.lat\r\n"
    "NULL\r\n"
    "shapes.xsg\r\n";

ProjectData SampleProject() {
  ProjectData project;
  project.BCFilesH[1].Upstream = "head.bcf";
  project.BCFilesH[2].Downstream = "tail.bcf";
  project.LatFileH = "lat.lat";
  project.WitFileH = "(Not Specified)";
  project.XSGFileH = "shapes.xsg";
  return project;
}

/// The record of the sample file and the sample project.
HydroInput SampleHydro() {
  HydroInput hydro;
  hydro.HydroLoaded = true;
  hydro.FileName = "a.hnp";
  hydro.Title = "Lower Tavresk; at Ca\u00F1on";
  hydro.StartDate = *DateSerial(1997, 5, 1);
  hydro.EndDate = *DateSerial(1997, 5, 31) + 13.5 / 24;
  hydro.LatFile = "lat.lat";
  hydro.WitFile = "(Not Specified)";
  hydro.XSGFile = "shapes.xsg";
  hydro.Theta = 0.6F;
  hydro.Tolerance = 0.01F;
  hydro.Beta = 1;
  hydro.MileAtBottom = 12.5F;
  hydro.Gravity = 32.17F;
  hydro.SeedYear = 1996;
  hydro.PrintStepCount = 1;
  hydro.PrintSteps[1] = {hydro.StartDate, 0.25F};
  hydro.TimeStepCount = 2;
  hydro.TimeSteps[1] = {hydro.StartDate, 300};
  hydro.TimeSteps[2] = {hydro.StartDate + 1 + (6 * 60 + 20) / 1440.0, 0.00001F};
  hydro.XSectCount = 4;
  hydro.BranchCount = 2;

  BranchRec& main = hydro.Branches[1];
  main.Name = "Main";
  main.USValue = 100.25F;
  main.USFile = "head.bcf";
  main.DSType = 'R';
  main.DSValue = 12345678;
  main.DSAngle = 0.5F;
  main.XSectCount = 3;
  main.XSects = BoundedArray<XSectRec>(1, 3);
  main.XSects[1] = {"M 1",  true, "SHAPE1", 1000,   20, 3.5F, 0, -1.25F,
                    0.035F, 0.1F, 0.04F,    0.001F, 1,  2,    3};
  main.XSects[2].Name = "M2";
  main.XSects[2].Lookup = "SHAPE1";
  main.XSects[3].Name = "M3";
  main.XSects[3].Lookup = "SHAPE2";
  main.XSects[3].Print = true;

  BranchRec& side = hydro.Branches[2];
  side.Name = "Side";
  side.USType = 'H';
  side.DSBranch = 1;
  side.DSXSect = 2;
  side.DSAngle = 45;
  side.DSFile = "tail.bcf";
  side.XSectCount = 1;
  side.XSects = BoundedArray<XSectRec>(1, 1);
  side.XSects[1].Name = "m2";
  side.XSects[1].Lookup = "S";
  return hydro;
}

/// The record after a load: numbers keep 7 digits in a file.
HydroInput SampleRead() {
  HydroInput hydro = SampleHydro();
  hydro.Branches[1].DSValue = 1.234568E+07F;
  return hydro;
}

TEST(HydroFile, HasItsLayoutAndComesBack) {
  const TempFolder folder;
  ScriptedUi ui;
  HydroInput hydro = SampleHydro();
  hydro.Title = "Lower Tavresk\r\nat Ca\u00F1on";
  hydro.Dirty = true;
  hydro.XSectCount = 77;
  ProjectData project = SampleProject();
  ASSERT_TRUE(SaveHNPFile(hydro, project, ui, " a.hnp"));
  EXPECT_EQ(folder.Read("a.hnp"), kSample);
  EXPECT_FALSE(hydro.Dirty);
  EXPECT_EQ(hydro.XSectCount, 4);

  HydroInput read;
  read.Dirty = true;
  ASSERT_TRUE(LoadHNPFile(read, project, ui, "a.hnp "));
  EXPECT_EQ(read, SampleRead());
  EXPECT_EQ(project.BCFilesH.UpperBound(), 20);
  ASSERT_TRUE(SaveHNPFile(read, project, ui, "a.hnp"));
  EXPECT_EQ(folder.Read("a.hnp"), kSample);
  EXPECT_EQ(folder.Entries(), "a.bak a.hnp");
  EXPECT_TRUE(ui.Messages.empty());
  EXPECT_EQ(ui.BusyDepth, 0);
}

struct Edit {
  const char* Name;
  const char* From;
  const char* To;
};

class ToleratedHydroFile : public testing::TestWithParam<Edit> {};

TEST_P(ToleratedHydroFile, LoadsAsTheSample) {
  const TempFolder folder;
  ScriptedUi ui;
  const std::string text = ReplaceAll(kSample, GetParam().From, GetParam().To);
  ASSERT_NE(text, kSample);
  folder.Write("a.hnp", text);
  HydroInput hydro;
  ProjectData project = SampleProject();
  ASSERT_TRUE(LoadHNPFile(hydro, project, ui, "a.hnp")) << ui.LastMessage();
  EXPECT_EQ(hydro, SampleRead());
  EXPECT_TRUE(ui.Messages.empty());
}

INSTANTIATE_TEST_SUITE_P(
    HydroFile, ToleratedHydroFile,
    testing::Values(
        Edit{"LineFeedsAlone", "\r\n", "\n"}, Edit{"Utf8", "\xF1", "\u00F1"},
        Edit{"WrongTotal", "4\t2\t1997", "99999\t2\t1997"},
        Edit{"BlanksBetweenNumbers", "3.5\t0\t-1.25\t1", "  3.5 \t0   -1.25 1"},
        Edit{"TabsAroundNames", "\r\nMain\r\n", "\r\n \tMain\t\r\n"},
        Edit{"LongTypes", "\r\nR\r\n", "\r\nRating curve\r\n"},
        Edit{"LogicalsInWords", "\t0.001\t1\r\n", "\t0.001\t.true. \r\n"},
        Edit{"HourBeforeMidnight", "1997\t5\t1\t0\t0.25", "1997\t4\t30\t24\t0.25"},
        Edit{"TrailerOfOtherNames", "shapes.xsg", "others.xsg"},
        Edit{"FieldsBeyondTheLast", "32.17\t12.5\t0.6\t0.01", "32.17\t12.5\t0.6\t0.01\tx\t9"},
        Edit{"NoTrailer", " 2 \r\n1\t-2\r\nhead.bcf\r\ntail.bcf\r\nlat.lat\r\nNULL\r\nshapes.xsg",
             ""}),
    [](const auto& row) { return row.param.Name; });

TEST(HydroFile, TakesBranchesByNumberAndTheirBoundaryFilesByPlace) {
  const TempFolder folder;
  ScriptedUi ui;
  std::string text = ReplaceAll(kSample, "\r\n 1 \r\nMain", "\r\n 2 \r\nMain");
  text = ReplaceAll(text, "\r\n 2 \r\nSide", "\r\n 1 \r\nSide");
  folder.Write("a.hnp", text);
  HydroInput hydro;
  ProjectData project = SampleProject();
  ASSERT_TRUE(LoadHNPFile(hydro, project, ui, "a.hnp"));
  EXPECT_EQ(hydro.Branches[2].Name, "Main");
  EXPECT_EQ(hydro.Branches[2].USFile, "head.bcf");
  EXPECT_EQ(hydro.Branches[1].Name, "Side");
  EXPECT_EQ(hydro.Branches[1].DSFile, "tail.bcf");
}

TEST(HydroFile, WarnsOfBranchNumbersThatLeaveAGap) {
  const TempFolder folder;
  for (const char* number : {" 1 ", " 3 "}) {
    folder.Write("a.hnp",
                 ReplaceAll(kSample, "\r\n 2 \r\nSide", std::string("\r\n") + number + "\r\nSide"));
    ScriptedUi ui;
    HydroInput hydro;
    ProjectData project;
    EXPECT_TRUE(LoadHNPFile(hydro, project, ui, "a.hnp"));
    EXPECT_THAT(ui.LastMessage(), HasSubstr("a.hnp are not numbered from 1 to 2")) << number;
  }
}

TEST(HydroFile, NewAndEmptyFilesAreNoFailure) {
  const TempFolder folder;
  ScriptedUi ui;
  HydroInput hydro = SampleHydro();
  ProjectData project;
  EXPECT_TRUE(LoadHNPFile(hydro, project, ui, "  "));
  EXPECT_TRUE(ui.Messages.empty());
  EXPECT_TRUE(LoadHNPFile(hydro, project, ui, "new.hnp "));
  EXPECT_EQ(ui.LastMessage(), "Hydrodynamic file new.hnp not found; it will now be created.");
  EXPECT_EQ(ui.Messages.back().Title, "Error");
  EXPECT_EQ(hydro, SampleHydro());

  folder.Write("empty.hnp", "");
  EXPECT_TRUE(LoadHNPFile(hydro, project, ui, "empty.hnp"));
  HydroInput empty;
  empty.HydroLoaded = true;
  empty.FileName = "empty.hnp";
  EXPECT_EQ(hydro, empty);
}

struct BadEdit {
  Edit Change;
  const char* Message;
};

class BadHydroFile : public testing::TestWithParam<BadEdit> {};

TEST_P(BadHydroFile, IsToldWithItsLineAndLeavesTheRecords) {
  const TempFolder folder;
  ScriptedUi ui;
  const std::string text = ReplaceAll(kSample, GetParam().Change.From, GetParam().Change.To);
  ASSERT_NE(text, kSample);
  folder.Write("sub/a.hnp", text);
  HydroInput hydro = SampleHydro();
  ProjectData project = SampleProject();
  project.FileName = folder.Path("sub/a.prj");
  project.BCFilesH.Resize(2);
  const ProjectData before = project;
  EXPECT_FALSE(LoadHNPFile(hydro, project, ui, "a.hnp"));
  EXPECT_EQ(ui.LastMessage(), "Following error occurred on line " +
                                  ReplaceAll(GetParam().Message, "|", "\r\n\r\n") +
                                  "\r\n\r\nInput aborted.");
  EXPECT_EQ(ui.Messages.size(), 1u);
  EXPECT_EQ(ui.BusyDepth, 0);
  EXPECT_EQ(hydro, SampleHydro());
  EXPECT_EQ(project, before);
}

INSTANTIATE_TEST_SUITE_P(
    HydroFile, BadHydroFile,
    testing::Values(
        BadEdit{{"BranchesBeyond", "4\t2\t1997", "4\t21\t1997"},
                "3 of file a.hnp|Subscript out of range: 21 is not within 0 to 20|"
                "Last line read was: 4\t21\t1997\t5\t1\t0\t1997\t5\t31\t13.5\t1996"},
        BadEdit{{"PrintStepsBeyond", "\r\n 1 \r\n1997", "\r\n 51 \r\n1997"},
                "5 of file a.hnp|Subscript out of range: 51 is not within 0 to 50|"
                "Last line read was:  51 "},
        BadEdit{{"NegativeSteps", "\r\n 2 \r\n1997", "\r\n-3\r\n1997"},
                "7 of file a.hnp|Subscript out of range: -3 is not within 0 to 50|"
                "Last line read was: -3"},
        BadEdit{{"BranchZero", " 1 \r\nMain", "0\r\nMain"},
                "10 of file a.hnp|Subscript out of range: 0 is not within 1 to 20|"
                "Last line read was: 0"},
        BadEdit{{"HugeCount", "3\t0\t0\t100.25", "32000\t0\t0\t100.25"},
                "14 of file a.hnp|Input past end of file: the file is too short to hold 32000 of "
                "them|Last line read was: 32000\t0\t0\t100.25\t1.234568E+07\t0.5"},
        BadEdit{{"NegativeCount", "3\t0\t0\t100.25", "-1\t0\t0\t100.25"},
                "14 of file a.hnp|Subscript out of range: -1 is not a possible count|"
                "Last line read was: -1\t0\t0\t100.25\t1.234568E+07\t0.5"}),
    [](const auto& row) { return row.param.Change.Name; });

TEST(HydroFile, CutOffAnywhereLoadsOrLeavesTheRecords) {
  const TempFolder folder;
  const std::string sample = kSample;
  for (std::size_t size = 0; size < sample.size(); ++size) {
    folder.Write("a.hnp", sample.substr(0, size));
    ScriptedUi ui;
    ui.Answers.assign(20, Answer::Abort);
    HydroInput hydro = SampleHydro();
    ProjectData project = SampleProject();
    if (LoadHNPFile(hydro, project, ui, "a.hnp")) continue;
    EXPECT_EQ(hydro, SampleHydro());
    EXPECT_THAT(ui.LastMessage(), HasSubstr("Input aborted."));
  }
}

TEST(HydroFile, AFieldThatIsNoNumberCostsOneQuestion) {
  const TempFolder folder;
  folder.Write("a.hnp", ReplaceAll(kSample, "32.17\t12.5", "32.17\tx12"));
  for (const Answer answer : {Answer::Abort, Answer::Ignore}) {
    ScriptedUi ui;
    ui.Answers = {answer};
    HydroInput hydro;
    ProjectData project = SampleProject();
    ASSERT_TRUE(LoadHNPFile(hydro, project, ui, "a.hnp"));
    EXPECT_THAT(ui.LastMessage(),
                HasSubstr("ReadLine; error occurred on line 4 of file:\r\n\r\n1\t32.17\tx12"));
    HydroInput expected = SampleRead();
    expected.MileAtBottom = 0;
    if (answer == Answer::Abort) expected.Theta = expected.Tolerance = 0;
    EXPECT_EQ(hydro, expected);
  }
}

TEST(HydroFile, RefusesNamesThatStandTwice) {
  const TempFolder folder;
  folder.Write("a.hnp", "old");
  HydroInput hydro = SampleHydro();
  ProjectData project = SampleProject();
  hydro.Branches[1].XSects[3].Name = hydro.Branches[2].XSects[1].Name = "M 1";
  ScriptedUi ui;
  hydro.Dirty = true;
  EXPECT_FALSE(SaveHNPFile(hydro, project, ui, "a.hnp"));
  EXPECT_EQ(ui.LastMessage(),
            "Cross section 3 (M 1) in branch 1 (Main) was also found in branch 1 (Main), cross "
            "section 1.\r\n\r\nDuplicate cross section names are not allowed.");
  EXPECT_EQ(ui.Messages.back().Title, "Error");

  hydro.Branches[1].XSects[3].Name = "M3";
  EXPECT_FALSE(SaveHNPFile(hydro, project, ui, "a.hnp"));
  EXPECT_THAT(ui.LastMessage(), HasSubstr("Cross section 1 (M 1) in branch 2 (Side) was also found "
                                          "in branch 1 (Main), cross section 1."));
  EXPECT_EQ(folder.Read("a.hnp"), "old");
  EXPECT_TRUE(hydro.Dirty);
  EXPECT_EQ(project, SampleProject());
}

TEST(HydroFile, GivesItsFileNamesToTheProject) {
  const TempFolder folder;
  ScriptedUi ui;
  HydroInput hydro = SampleHydro();
  ProjectData project = SampleProject();
  ASSERT_TRUE(SaveHNPFile(hydro, project, ui, "a.hnp"));
  EXPECT_FALSE(project.Dirty) << "no name has changed";

  hydro.WitFile = " new.wit";
  hydro.XSGFile = "null";
  hydro.Branches[2].USFile = "b.bcf";
  ASSERT_TRUE(SaveHNPFile(hydro, project, ui, "a.hnp"));
  EXPECT_TRUE(project.Dirty);
  EXPECT_EQ(project.WitFileH, "new.wit");
  EXPECT_EQ(project.XSGFileH, "(Not Specified)");
  EXPECT_EQ(project.BCCountH, 2);
  ASSERT_EQ(project.BCFilesH.UpperBound(), 2);
  EXPECT_EQ(project.BCFilesH[2], (BranchBCFiles{"b.bcf", "tail.bcf"}));

  project.Dirty = false;
  hydro.BranchCount = 1;
  ASSERT_TRUE(SaveHNPFile(hydro, project, ui, "a.hnp"));
  EXPECT_TRUE(project.Dirty) << "the files of branch 2 are gone";
}

TEST(HydroFile, ANumberThatNoFileCanHoldLeavesTheOldFile) {
  const TempFolder folder;
  folder.Write("a.hnp", "old");
  ScriptedUi ui;
  ui.Answers = {Answer::Ignore};
  HydroInput hydro = SampleHydro();
  ProjectData project;
  hydro.Branches[1].XSects[1].Flow = std::numeric_limits<float>::infinity();
  EXPECT_FALSE(SaveHNPFile(hydro, project, ui, "a.hnp"));
  EXPECT_THAT(ui.LastMessage(), HasSubstr("in procedure \"SaveHNPFile\""));
  EXPECT_EQ(folder.Read("a.hnp"), "old");
}

}  // namespace
}  // namespace lomaris

#include "model/hnp_file.h"

#include <array>
#include <limits>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

using testing::EndsWith, testing::HasSubstr, testing::StartsWith;

constexpr char kSample[] =
    "Lower Tavresk; at Ca\xF1on\r\n"
    "4\t2\t1997\t5\t1\t0\t1997\t5\t31\t13.5\t1996\r\n1\t32.17\t12.5\t0.6\t0.01\r\n"
    " 1 \r\n1997\t5\t1\t0\t0.25\r\n"
    " 2 \r\n1997\t5\t1\t0\t300\r\n1997\t5\t2\t6.333333\t1E-05\r\n"
    " 1 \r\nMain\r\nQ\r\nR\r\n3\t0\t0\t100.25\t1.234568E+07\t0.5\r\n"
    "M 1\r\nSHAPE1\r\n1000\t20\t3.5\t0\t-1.25\t1\t2\t3\t0.035\t0.1\t0.04\t0.001\t1\r\n"
    "M2\r\nSHAPE1\r\n0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\r\n"
    "M3\r\nSHAPE2\r\n0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t1\r\n"
    " 2 \r\nSide\r\nH\r\nQ\r\n1\t1\t2\t0\t0\t45\r\n"
    "m2\r\nS\r\n0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\r\n"
    " 2 \r\n1\t-2\r\nhead.bcf\r\ntail.bcf\r\n"
    "lat.lat\r\nNULL\r\nshapes.xsg\r\n";

/// The record of the sample file and its project, in the order of the fields.
HydroInput SampleHydro() {
  const ModelDateTime start = *DateSerial(1997, 5, 1), end = start + 30 + 13.5 / 24;
  HydroInput hydro = {false,        true,   "a.hnp",   "Lower Tavresk; at Ca\u00F1on",
                      start,        end,    "lat.lat", "(Not Specified)",
                      "shapes.xsg", 0.6F,   0.01F,     1,
                      12.5F,        32.17F, 1996};
  hydro.TimeStepCount = 2;
  hydro.TimeSteps[1] = {start, 300};
  hydro.TimeSteps[2] = {start + 1 + (6 * 60 + 20) / 1440.0, 0.00001F};
  hydro.PrintStepCount = 1;
  hydro.PrintSteps[1] = {start, 0.25F};
  hydro.XSectCount = 4;
  hydro.BranchCount = 2;
  BranchRec& main = hydro.Branches[1];
  BranchRec& side = hydro.Branches[2];
  main = {"Main", 'Q', 100.25F, "head.bcf", 0, 0, 'R', 1.234568E+07F, 0.5F, "", 3, {1, 3}};
  main.XSects[1] = {"M 1",  true, "SHAPE1", 1000,   20, 3.5F, 0, -1.25F,
                    0.035F, 0.1F, 0.04F,    0.001F, 1,  2,    3};
  main.XSects[2] = {"M2", false, "SHAPE1"};
  main.XSects[3] = {"M3", true, "SHAPE2"};
  side = {"Side", 'H', 0, "", 1, 2, 'Q', 0, 45, "tail.bcf", 1, {1, 1}};
  side.XSects[1] = {"m2", false, "S"};
  return hydro;
}

/// The sample with a change.
std::string Edited(const std::string& from, const std::string& to) {
  const std::string text = ReplaceAll(kSample, from, to);
  EXPECT_NE(text, kSample) << from;
  return text;
}

class HydroFile : public testing::Test {
 protected:
  HydroFile() {
    project_.BCFilesH[1].Upstream = "head.bcf";
    project_.BCFilesH[2].Downstream = "tail.bcf";
    project_.LatFileH = "lat.lat";
    project_.WitFileH = "(Not Specified)";
    project_.XSGFileH = "shapes.xsg";
  }

  bool Load(const std::string& text) {
    folder_.Write("a.hnp", text);
    const bool loaded = LoadHNPFile(hydro_, project_, ui_, "a.hnp ");
    EXPECT_TRUE(!loaded || hydro_.OnDisk == StampOf("a.hnp"));
    hydro_.OnDisk = {};  // of this file alone
    return loaded;
  }
  bool Save() { return SaveHNPFile(hydro_, project_, ui_, " a.hnp"); }

  TempFolder folder_;
  ScriptedUi ui_;
  ProjectData project_;
  HydroInput hydro_ = SampleHydro();
};

TEST_F(HydroFile, HasItsLayoutAndComesBack) {
  hydro_.Title = "Lower Tavresk\r\nat Ca\u00F1on ";
  hydro_.Dirty = true;
  hydro_.XSectCount = 77;
  ASSERT_TRUE(Save());
  EXPECT_EQ(folder_.Read("a.hnp"), kSample);
  EXPECT_FALSE(hydro_.Dirty);

  ASSERT_TRUE(Load(kSample));
  EXPECT_EQ(hydro_, SampleHydro());
  EXPECT_EQ(project_.BCFilesH.UpperBound(), 20);
  ASSERT_TRUE(Save());
  EXPECT_EQ(folder_.Read("a.hnp"), kSample);
  EXPECT_EQ(folder_.Entries(), "a.bak a.hnp");
  EXPECT_TRUE(ui_.Messages.empty());
}

TEST_F(HydroFile, IsReadWithTolerance) {
  const std::array<const char*, 3> rows[] = {
      {"line feeds alone", "\r\n", "\n"},
      {"UTF-8", "\xF1", "\u00F1"},
      {"a wrong total", "4\t2\t1997", "99999\t2\t1997"},
      {"blanks between numbers", "3.5\t0\t-1.25\t1", "  3.5 \t0   -1.25 1"},
      {"tabs around names", "\r\nMain\r\n", "\r\n \tMain\t\r\n"},
      {"long types", "\r\nR\r\n", "\r\nRating curve\r\n"},
      {"logicals in words", "\t0.001\t1\r\n", "\t0.001\t.true. \r\n"},
      {"an hour before midnight", "1997\t5\t1\t0\t0.25", "1997\t4\t30\t24\t0.25"},
      {"no trailer", " 2 \r\n1\t-2\r\nhead.bcf\r\ntail.bcf\r\nlat.lat\r\nNULL\r\nshapes.xsg", ""}};
  for (const auto& [name, from, to] : rows) {
    hydro_ = {};
    EXPECT_TRUE(Load(Edited(from, to))) << name;
    EXPECT_EQ(hydro_, SampleHydro()) << name;
    EXPECT_EQ(ui_.LastMessage(), "") << name;
  }
}

TEST_F(HydroFile, TakesBranchesByNumberAndTheirBoundaryFilesByPlace) {
  const std::string mainLast = Edited(" 1 \r\nMain", " 2 \r\nMain");
  ASSERT_TRUE(Load(ReplaceAll(mainLast, " 2 \r\nSide", " 1 \r\nSide")));
  EXPECT_EQ(hydro_.Branches[2].Name + hydro_.Branches[2].USFile, "Mainhead.bcf");
  EXPECT_EQ(hydro_.Branches[1].Name + hydro_.Branches[1].DSFile, "Sidetail.bcf");
  EXPECT_TRUE(ui_.Messages.empty());
  for (const char* gap : {" 1 \r\nSide", " 3 \r\nSide"}) {
    EXPECT_TRUE(Load(Edited(" 2 \r\nSide", gap)));
    EXPECT_THAT(ui_.LastMessage(), HasSubstr("a.hnp are not numbered from 1 to 2")) << gap;
    ui_.Messages.clear();
  }
}

TEST_F(HydroFile, NewAndEmptyFilesAreNoFailure) {
  EXPECT_TRUE(LoadHNPFile(hydro_, project_, ui_, "  ") && ui_.Messages.empty());
  EXPECT_TRUE(LoadHNPFile(hydro_, project_, ui_, "new.hnp "));
  EXPECT_EQ(ui_.LastMessage(), "Hydrodynamic file new.hnp not found; it will now be created.");
  EXPECT_EQ(hydro_, SampleHydro());
  EXPECT_TRUE(Load(""));
  EXPECT_TRUE(hydro_.HydroLoaded && hydro_.BranchCount == 0);
}

TEST_F(HydroFile, IsToldToBeBadWithItsLineAndLeavesTheRecords) {
  const std::string subscript = "Subscript out of range: ",
                    tooShort = "Input past end of file: the file is too short to hold ";
  const std::tuple<std::string, std::string, int, std::string> rows[] = {
      {"4\t2\t1997", "4\t21\t1997", 3, subscript + "21 is not within 0 to 20"},
      {" 1 \r\n1997", "-3\r\n1997", 5, subscript + "-3 is not within 0 to 50"},
      {" 1 \r\nMain", "0\r\nMain", 10, subscript + "0 is not within 1 to 20"},
      {"3\t0\t0\t100.25", "32000\t0\t0\t100.25", 14, tooShort + "32000 of them"},
      {"3\t0\t0\t100.25", "-1\t0\t0\t100.25", 14, subscript + "-1 is not a possible count"}};
  project_.BCFilesH.Resize(2);
  const ProjectData before = project_;
  for (const auto& [from, to, line, message] : rows) {
    EXPECT_FALSE(Load(Edited(from, to)));
    EXPECT_THAT(ui_.LastMessage(),
                StartsWith("Following error occurred on line " + NumberText(line) +
                           " of file a.hnp\r\n\r\n" + message +
                           "\r\n\r\nLast line read was: " + to.substr(0, to.find('\r'))));
    EXPECT_THAT(ui_.LastMessage(), EndsWith("\r\n\r\nInput aborted."));
    EXPECT_EQ(hydro_, SampleHydro());
    EXPECT_EQ(project_, before);
    EXPECT_EQ(ui_.BusyDepth, 0);
  }
}

TEST_F(HydroFile, RefusesWhatCouldNotBeReadBack) {
  folder_.Write("a.hnp", "old");
  hydro_.Dirty = true;
  hydro_.Branches[1].XSects[3].Name = "M 1";
  EXPECT_FALSE(Save());
  EXPECT_EQ(ui_.LastMessage(),
            "Cross section 3 (M 1) in branch 1 (Main) was also found in branch 1 (Main), cross "
            "section 1.\r\n\r\nDuplicate cross section names are not allowed.");
  hydro_.Branches[1].XSects[3].Name = "m3";
  hydro_.Branches[2].XSects[1].Name = " M2";
  EXPECT_FALSE(Save());
  EXPECT_THAT(ui_.LastMessage(), StartsWith("Cross section 1 (M2) in branch 2 (Side) was also "));
  hydro_.Branches[2].XSects[1].Name = "m2";
  hydro_.Branches[1].XSects[1].Flow = std::numeric_limits<float>::infinity();
  ui_.Answers = {Answer::Ignore};
  EXPECT_FALSE(Save());
  EXPECT_THAT(ui_.LastMessage(), HasSubstr("in procedure \"SaveHNPFile\""));
  EXPECT_EQ(folder_.Read("a.hnp"), "old");
  EXPECT_TRUE(hydro_.Dirty);
}

TEST_F(HydroFile, GivesItsFileNamesToTheProject) {
  ASSERT_TRUE(Save());
  EXPECT_FALSE(project_.Dirty) << "no name has changed";
  hydro_.WitFile = " new.wit";
  hydro_.XSGFile = "null";
  hydro_.Branches[2].USFile = "b.bcf";
  ASSERT_TRUE(Save());
  EXPECT_TRUE(project_.Dirty);
  EXPECT_EQ(project_.WitFileH + project_.XSGFileH, "new.wit(Not Specified)");
  EXPECT_EQ(project_.BCCountH, 2);
  EXPECT_EQ(project_.BCFilesH.UpperBound(), 2);
  EXPECT_EQ(project_.BCFilesH[2], (BranchBCFiles{"b.bcf", "tail.bcf"}));

  project_.Dirty = false;
  hydro_.BranchCount = 1;
  ASSERT_TRUE(Save());
  EXPECT_TRUE(project_.Dirty) << "the files of branch 2 are gone";
}

}  // namespace
}  // namespace lomaris

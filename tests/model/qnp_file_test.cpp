#include "model/qnp_file.h"

#include <initializer_list>
#include <numeric>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text.h"
#include "model/kinetic_catalogue.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

using testing::AllOf, testing::EndsWith, testing::HasSubstr, testing::StartsWith;

/// Consecutive numbers from `first` on, so many on each line.
std::string Rows(int first, std::initializer_list<int> counts) {
  std::string rows;
  for (const int count : counts) {
    for (int i = 0; i < count; ++i) {
      rows += std::to_string(first++) + (i + 1 < count ? "\t" : "\r\n");
    }
  }
  return rows;
}

std::string XSectText(const std::string& name, const std::string& print, int first) {
  return name + "\r\n" + print + "\r\n" + Rows(first, {12, 4}) + Rows(first + 100, {12, 4}) +
         Rows(first + 200, {2, 4, 3, 4, 5});
}

std::string BranchText(const std::string& head, int first, const std::string& wind) {
  return head + Rows(first, {2, 2, 3, 2, 4, 3, 3, 5, 5, 4, 4, 2, 2, 1}) + wind + "\r\n";
}

const std::string kMain = BranchText(" 1 \r\nMain\r\n", 301, ".TRUE.") +
                          XSectText("M 1", "1", 1000) + XSectText("M2", "0", 2000) +
                          XSectText("M3", "0", 3000);
const std::string kSide = BranchText(" 2 \r\nSide\r\n", 401, ".FALSE.") +
                          XSectText("s1", "0", 4000) + XSectText("s2", "0", 5000) +
                          XSectText("s3", "1", 6000);
const std::string kHead =
    "Lower Tavresk; at Ca\xF1on\r\n1997\t5\t1\t0\t1997\t5\t31\t13.5\r\n" +
    Rows(1, {5, 5, 5, 5, 1, 4, 5, 3, 3}) +
    " 1 \r\n1997\t5\t1\t0\t0.25\r\n1\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t1\r\n";
const std::string kTrailer =
    " 2 \r\n1\t-2\r\nhead.bcf\r\ntail.bcf\r\n 1 \r\ncity.met\r\nloads.lat\r\nNULL\r\n";
const std::string kSample = kHead + kMain + kSide + kTrailer;

void Count(BoundedArray<float>& values, int first) {
  std::iota(values.begin(), values.end(), static_cast<float>(first));
}

QualInput SampleQual() {
  QualInput qual;
  qual.FileName = "a.qnp";
  qual.Title = "Lower Tavresk; at Ca\u00F1on";
  qual.StartDate = *DateSerial(1997, 5, 1);
  qual.EndDate = qual.StartDate + 30 + 13.5 / 24;
  qual.LatFile = "loads.lat";
  qual.PowFile = "(Not Specified)";
  qual.MetCount = 1;
  qual.MetFiles[1] = "city.met";
  qual.Bypass[1] = qual.Bypass[16] = true;
  qual.PrintStepCount = 1;
  qual.PrintSteps[1] = {qual.StartDate, 0.25F};
  Count(qual.GlobalKinetics, 1);
  qual.BranchCount = 2;
  qual.Branches[1] = {"Main", "head.bcf", "", 3, {1, 3}};
  qual.Branches[2] = {"Side", "", "tail.bcf", 3, {1, 3}};
  for (int i = 1; i <= 6; ++i) {
    const char* names[] = {"M 1", "M2", "M3", "s1", "s2", "s3"};
    QualXSectRec& xsect = qual.Branches[i > 3 ? 2 : 1].XSects[i > 3 ? i - 3 : i];
    xsect.Name = names[i - 1];
    xsect.Print = i == 1 || i == 6;
    Count(xsect.InitialConc, i * 1000);
    Count(xsect.LateralConc, i * 1000 + 100);
    Count(xsect.XSectKinetics, i * 1000 + 200);
  }
  Count(qual.Branches[1].BranchKinetics, 301);
  Count(qual.Branches[2].BranchKinetics, 401);
  qual.Branches[1].BranchKinetics[kWindReaeration] = 1;
  qual.Branches[2].BranchKinetics[kWindReaeration] = 0;
  return qual;
}

class QualFile : public testing::Test {
 protected:
  QualFile() {
    project_.BCFilesQ[1].Upstream = "head.bcf";
    project_.BCFilesQ[2].Downstream = "tail.bcf";
    project_.MetCount = 1;
    project_.MetFiles[1] = "city.met";
    project_.LatFileQ = "loads.lat";
    project_.PowFileQ = "(Not Specified)";
    hydro_.BranchCount = 2;
    for (int i = 1; i <= 2; ++i) {
      hydro_.Branches[i].Name = qual_.Branches[i].Name;
      HydroXSects(i, 3);
    }
    for (int i = 1; i <= 3; ++i) {
      hydro_.Branches[1].XSects[i].Name = qual_.Branches[1].XSects[i].Name;
      hydro_.Branches[2].XSects[i].Name = qual_.Branches[2].XSects[i].Name;
    }
  }

  bool Load(const std::string& text, const QualLoad& how = {}) {
    folder_.Write("a.qnp", text);
    const bool loaded = LoadQNPFile(qual_, project_, hydro_, ui_, " a.qnp ", how);
    qual_.OnDisk = {};
    return loaded;
  }
  bool Save() {
    const bool saved = SaveQNPFile(qual_, project_, ui_, "a.qnp ");
    qual_.OnDisk = {};
    return saved;
  }

  void HydroXSects(int branch, std::int16_t count) {
    hydro_.Branches[branch].XSectCount = count;
    hydro_.Branches[branch].XSects.Resize(count);
  }

  TempFolder folder_;
  ScriptedUi ui_;
  ProjectData project_;
  HydroInput hydro_;
  QualInput qual_ = SampleQual();
};

TEST_F(QualFile, HasItsLayoutAndComesBack) {
  qual_.Title = "Lower Tavresk\r\nat Ca\u00F1on ";
  qual_.Dirty = true;
  qual_.Branches[1].BranchKinetics[kWindReaeration] = 0.5F;
  ASSERT_TRUE(Save());
  EXPECT_EQ(folder_.Read("a.qnp"), kSample);
  EXPECT_FALSE(qual_.Dirty || project_.Dirty);

  std::vector<int> percents;
  project_.BCFilesQ.Resize(2);
  qual_ = {};
  ASSERT_TRUE(Load(kSample, {.SetProgress = [&](int percent) { percents.push_back(percent); }}));
  EXPECT_EQ(qual_, SampleQual());
  EXPECT_EQ(project_.BCFilesQ.UpperBound(), 20);
  EXPECT_EQ(percents, (std::vector{50, 100}));
  ASSERT_TRUE(Save());
  EXPECT_EQ(folder_.Read("a.qnp"), kSample);
  EXPECT_EQ(folder_.Entries(), "a.bak a.qnp");
  EXPECT_TRUE(ui_.Messages.empty());
}

TEST_F(QualFile, CountsLinesAndMindsNothingElse) {
  const std::string one = Rows(1000, {16}), two = Rows(1000, {12, 4});
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {"a group on one of its lines", two, one + "\r\n"},
      {"blanks and tabs", two, "\t " + ReplaceAll(two, "\t", " \t\t ")},
      {"a logical in lower case", ".TRUE.", ".true. "},
      {"line feeds alone", "\r\n", "\n"},
      {"branches in another order", kMain + kSide, kSide + kMain},
      {"no trailer", kTrailer, ""},
      {"a trailer of another file", kTrailer, " 1 \r\n1\r\n7\r\n 0 \r\nNULL\r\nNULL\r\n"}};
  for (const auto& [name, from, to] : rows) {
    qual_ = {};
    EXPECT_TRUE(Load(ReplaceAll(kSample, from, to))) << name;
    EXPECT_EQ(qual_, SampleQual()) << name;
    EXPECT_EQ(ui_.LastMessage(), "") << name;
  }
}

TEST_F(QualFile, IsToldToBeBadWithItsPlaceAndLeavesTheRecords) {
  const std::string advice =
      " The branches and cross sections of a Water Quality input file are those of the "
      "Hydrodynamic input file, in number and order. If the network has been changed since, load "
      "the Hydrodynamic input file that this file was made for, or build a new Water Quality input "
      "file.";
  const std::string subscript = "Subscript out of range: ", ends = "the file ends before all that ";
  const std::string kinetics = Rows(2200, {2, 4, 3, 4, 5});
  const std::tuple<std::string, std::string, std::string, std::string> rows[] = {
      {kSample, "", "line 1 ", "Input past end of file: " + ends},
      {"2001\t", "2001\t1\t1\t", "line 47 ", subscript + "18 values"},
      {"2001\t", "x\t", "line 47 of file a.qnp\r\n\r\nType mismatch: \"x\" is not a number\r\n\r\n",
       "This happened in the initial concentrations of cross section 2 (M2) of branch 1 (Main)." +
           advice + "\r\n\r\nLast line read was: 2012\t2013\t2014\t2015\r\n\r\nInput aborted."},
      {"2001\t", "", subscript + "15 values stand where 16 are needed", "cross section 2 (M2) of "},
      {kinetics, Rows(2200, {2, 4, 3, 9}), subscript + "This happened in the kinetics of",
       "Last line read was: M3"},
      {"34\t35\t36", "34\t35", "values stand where 36 are needed\r\n\r\n",
       "This happened in the global kinetics.\r\n"},
      {".FALSE.\r\n", "", "\"s1\" is not a number", "in the kinetics of branch 2 (Side)." + advice},
      {" 2 \r\nSide", "3\r\nSide", "3 is not within 1 to 2", "where branch 2 (Side) should begin."},
      {" 2 \r\nSide", "1\r\nSide", "branch 1 (Main) comes a second time", "where branch 2 (Side) "},
      {kMain, "", "no branch begins here", "where branch 1 (Main) should begin." + advice},
      {kSide + kTrailer, "", ends + "it announces", "where branch 2 (Side) should begin." + advice},
      {kSide, "", ends, "in the kinetics of branch 2 (Side)." + advice}};
  project_.BCFilesQ.Resize(2);
  const ProjectData before = project_;
  for (const auto& [from, to, message, place] : rows) {
    const std::string text = ReplaceAll(kSample, from, to);
    EXPECT_NE(text, kSample) << from;
    EXPECT_FALSE(Load(text)) << place;
    EXPECT_THAT(ui_.LastMessage(),
                AllOf(StartsWith("Following error occurred on line "), HasSubstr(message),
                      HasSubstr(place), EndsWith("\r\n\r\nInput aborted.")));
    EXPECT_TRUE(qual_ == SampleQual() && project_ == before) << place;
  }
  EXPECT_FALSE(folder_.Holds("QNPErr.txt"));
}

TEST_F(QualFile, IsHeldAgainstAChangedNetwork) {
  const std::tuple<int, std::int16_t, std::string> rows[] = {
      {1, 4, "branch 1 (Main) has 3 cross sections in this file and 4 in the network."},
      {2, 4,
       "This happened in the initial concentrations of cross section 4 () of branch 2 (Side)"},
      {0, 1, "this file has more branches than the 1 of the network.\r\n\r\nThe branches and "},
      {0, 3, "no branch begins here\r\n\r\nThis happened where branch 3 () should begin."}};
  for (const auto& [branch, count, message] : rows) {
    const HydroInput whole = hydro_;
    if (branch > 0) HydroXSects(branch, count);
    if (branch == 0) hydro_.BranchCount = count;
    EXPECT_FALSE(Load(kSample));
    EXPECT_THAT(ui_.LastMessage(), HasSubstr(message));
    EXPECT_TRUE(ui_.Messages.size() == 1 && qual_ == SampleQual());
    ui_.Messages.clear();
    hydro_ = whole;
  }
  for (const auto& [branch, name] : {std::pair(1, "M4"), std::pair(2, "1")}) {
    const std::string& last = branch == 1 ? kMain : kSide;
    EXPECT_FALSE(Load(ReplaceAll(kSample, last, last + XSectText(name, "0", 7000))));
    EXPECT_THAT(ui_.LastMessage(),
                HasSubstr(") has more cross sections in this file than the 3 of the network."));
  }
  HydroXSects(2, 2);
  EXPECT_FALSE(Load(kSample));
  EXPECT_EQ(ui_.LastMessage(),
            "You must have at least 3 cross sections in your hydrodynamic model.\r\nCorrect the "
            "hydrodynamic model configuration (or load an appropriate, compatible Hydrodynamic "
            "Input File).");
  EXPECT_EQ(qual_, SampleQual());
}

TEST_F(QualFile, TellsOfOtherNamesOnceAndListsThem) {
  std::filesystem::create_directory("program");
  folder_.Write("program/QNPErr.txt", "old");
  hydro_.Branches[1].XSects[2].Name = "m2";
  hydro_.Branches[2].XSects[3].Name = "s4";
  const std::string list =
      "Cross section name mismatch; QNP: M2; HNP:m2\r\n"
      "Cross section name mismatch; QNP: s3; HNP:s4\r\n";
  EXPECT_TRUE(Load(kSample, {.ProgramFolder = folder_.Path("program")}));
  EXPECT_EQ(qual_, SampleQual());
  ASSERT_EQ(ui_.Messages.size(), 1U);
  EXPECT_EQ(
      ui_.LastMessage(),
      "The cross section named M2 found in this Water Quality input file does not match the name "
      "of the corresponding cross section name in the Hydrodynamic input file: m2. Tavresk does "
      "not required these names to match in order to run correctly. However,  it is highly "
      "recommended that they do match to avoid errors in interpretation of model "
      "results.\r\n\r\nThere may be other name mismatches between these two files; however, this "
      "message will not be repeated for each occurrence. A complete list can be found in the file "
      "named " +
          folder_.Path("program/QNPErr.txt"));
  EXPECT_EQ(folder_.Read("program/QNPErr.txt"), list);
  EXPECT_EQ(folder_.Entries(), "a.qnp program");

  EXPECT_TRUE(Load(kSample, {.ProgramFolder = folder_.Path("a.qnp")}));
  EXPECT_EQ(folder_.Read("QNPErr.txt"), list) << "no report could be written there";
  EXPECT_TRUE(
      LoadQNPFile(qual_, project_, hydro_, ui_, folder_.Path("a.qnp"), {.ProgramFolder = "x"}));
  EXPECT_THAT(ui_.LastMessage(), EndsWith(" file named " + folder_.Path("QNPErr.txt")));
}

TEST_F(QualFile, NewFilesAreNoFailure) {
  for (const char* name : {"  ", "QNP", "new.qnp "}) {
    EXPECT_TRUE(ui_.Messages.empty());
    EXPECT_TRUE(LoadQNPFile(qual_, project_, hydro_, ui_, name)) << name;
    EXPECT_EQ(qual_, SampleQual());
  }
  EXPECT_EQ(ui_.LastMessage(), "Water Quality file new.qnp not found; it will now be created.");
}

TEST_F(QualFile, SharesItsFileNamesWithTheProject) {
  qual_.PowFile = " plant.pow";
  qual_.MetCount = 2;
  qual_.MetFiles[2] = "hill.met";
  qual_.Branches[1].DSFile = "b.bcf";
  ASSERT_TRUE(Save());
  EXPECT_TRUE(project_.Dirty);
  EXPECT_EQ(project_.PowFileQ + project_.MetFiles[2],
            "plant.pow"
            "hill.met");
  EXPECT_EQ(project_.MetCount, 2);
  EXPECT_EQ(project_.BCCountQ, 2);
  EXPECT_EQ(project_.BCFilesQ[1], (BranchBCFiles{"head.bcf", "b.bcf"}));

  project_.Dirty = false;
  qual_.MetCount = 1;
  ASSERT_TRUE(Save());
  EXPECT_TRUE(project_.Dirty && project_.MetFiles[2].empty());

  project_ = {};
  ASSERT_TRUE(Load(kSample, {.Names = NamesFrom::File}));
  EXPECT_EQ(qual_, SampleQual());
  EXPECT_EQ(project_.BCFilesQ[2].Downstream, "tail.bcf");
  qual_.GlobalKinetics[7] = std::numeric_limits<float>::infinity();
  qual_.Dirty = true;
  ui_.Answers = {Answer::Ignore};
  EXPECT_FALSE(Save());
  EXPECT_THAT(ui_.LastMessage(), HasSubstr("in procedure \"SaveQNPFile\""));
  EXPECT_EQ(folder_.Read("a.qnp"), kSample);
}

TEST(KineticCatalogue, NamesEachValueByItsPosition) {
  ScriptedUi ui;
  const KineticCatalogue catalogue = BuildCatalogue(ui);
  const KineticParameter& covar = catalogue.Global[36];
  EXPECT_EQ(covar.GridRow, 1);
  EXPECT_EQ(covar.Name + covar.Units + covar.Typical + covar.Mnemonic,
            "Covar Reaeration Option(0=No, 1=Yes)0 or 1ICOVAR");
  EXPECT_EQ(catalogue.Global[16].Default, 0);
  EXPECT_EQ(catalogue.Global[20].Units + catalogue.Global[20].Typical, "");
  EXPECT_EQ(catalogue.Global[20].Default, 1.04F);
  EXPECT_EQ(catalogue.Branch[kWindReaeration].Mnemonic, "QWIND0");
  EXPECT_EQ(catalogue.Branch[10].Name, "NO3 Conc. at which Denitrification is \u00BD Rate");
  EXPECT_EQ(catalogue.XSect[18].Mnemonic, "TSIV");
}

}  // namespace
}  // namespace lomaris

// The link to a running model, over the two files to a real process: the stand-in for the models.

#include <algorithm>
#include <cstdlib>

#include <gmock/gmock.h>

#include "run/exchange_files.h"
#include "standin_fixture.h"

namespace lomaris {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::size_t kFirstBranch = 19;  // cross sections

/// The row of the first branch at which the flow has risen most.
std::size_t Crest(const std::vector<float>& flows, const std::vector<float>& before) {
  std::size_t crest = 0;
  for (std::size_t row = 0; row < kFirstBranch; ++row) {
    if (flows[row] / before[row] > flows[crest] / before[crest]) crest = row;
  }
  return crest;
}

TEST_F(StandinRun, RunsToItsEndWithAWaveThatMovesDown) {
  Run(kRunHydro, "");
  EXPECT_EQ(monitor.Title, "100% - TavreskH Progress");
  EXPECT_EQ(monitor.DateTime, "11/01/2025 00:00");
  EXPECT_THAT(monitor.Titles, ElementsAre("Cross section", "Flow, cfs", "Depth, ft",
                                          "Elevation, ft msl", "Velocity, ft/s"));
  EXPECT_EQ(monitor.Messages.size(), 7u) << "two at first, three on the way, two at the end";
  EXPECT_THAT(monitor.Messages.front(), HasSubstr("It computes no hydraulics"));
  std::vector<std::size_t> crests;
  for (const auto& flows : monitor.Flows) crests.push_back(Crest(flows, monitor.Flows.front()));
  EXPECT_TRUE(std::ranges::is_sorted(crests));
  EXPECT_EQ(crests.back(), kFirstBranch - 1);
  EXPECT_NEAR(monitor.Flows.front().front(), 247.7, 3) << "the initial value";
  EXPECT_THAT(monitor.Messages.at(5), HasSubstr("What it showed is in corvane_river.bmd."));
  const clsBMD results = Results();
  EXPECT_EQ(results.Concs().Size(), 4u * 41 * 201);
  EXPECT_EQ(results.VarName(2) + results.VarUnits(2) + results.SegName(19),
            "Depth made upftCR 12.40");
  EXPECT_EQ(FormatDate(results.Time(201), "mm/dd/yyyy"), "11/01/2025");
  for (int row = 1; row <= 41; ++row) {
    EXPECT_EQ(results.Conc(1, row, 201),
              monitor.Flows.back().at(static_cast<std::size_t>(row - 1)));
  }
  EXPECT_THAT(Lines("heard "), ElementsAre("FROMVB"));
  EXPECT_THAT(Lines("network "), ElementsAre("corvane_river.hnp: 3 branches, 41 cross sections"));
  EXPECT_THAT(Lines("201 updates, "), ElementsAre("201 with results"));
}

TEST_F(StandinRun, HearsTheAnswerToEachQuestion) {
  const std::string path = folder.Write("a/b.lnk", "");
  ui.Answers = {Answer::Ok, Answer::Cancel, Answer::Yes, Answer::No, Answer::Cancel};
  ui.Texts = {"0.7 \xC3\xBC", ""};
  ui.Files = {{path}, {}};
  Run(kRunHydro,
      "at 0 msgbox 0 Before all|VeskH\n"
      "at 10 msgbox -2 Go on?|VeskH\n"
      "at 15 msgbox 2 Wait|VeskH\n"
      "at 20 question Dry?|VeskH\nat 20 question Wet?|VeskH\nat 20 question Either?|VeskH\n"
      "at 30 inputbox Theta|VeskH|0.6\nat 30 inputbox Beta\n"
      "at 40 openfile Take|lnk|a.lnk\nat 45 openfile None\n");
  std::vector<std::string> answers = Lines("answer ");
  std::erase(answers, "DONE");
  EXPECT_THAT(answers, ElementsAre("OK", "CANCEL", "CANCEL", "YES", "NO", "CANCEL", "OK0.7 \xFC",
                                   "CANCEL", "OK" + path, "CANCEL"));
  EXPECT_EQ(ui.InputBoxes.at(0).Proposal, "0.6");
  EXPECT_EQ(ui.FileDialogs.size(), 2u);
  EXPECT_THAT(monitor.Log, Contains("VeskH: Wait (2 s)"));
  EXPECT_EQ(monitor.Percent, 100) << "an answer is no wish to cancel";
}

TEST_F(StandinRun, WindsUpWhenItIsCancelled) {
  for (const char* script : {"at 20 idle 1000000", "at 20 msgbox 538976288 No number|VeskH"}) {
    Run(kRunHydro, script, [this] { monitor.Cancel |= monitor.Percent > 10; });
    EXPECT_THAT(monitor.Messages, Contains(HasSubstr("winds up: cancelled at ")));
    EXPECT_THAT(monitor.Messages.back(), HasSubstr("has completed execution"));
    EXPECT_LT(monitor.Percent, 100);
    const double percent = std::stod(Lines("cancelled at ").at(0));
    EXPECT_EQ(Results().NumTimes(), percent * 2 + 1) << "as far as it came";
    EXPECT_THAT(Lines("heard "), ElementsAre("FROMVB", "CANCEL"));
  }
}

TEST_F(StandinRun, WritesNoColumnsWhileTheyAreHidden) {
  Run(kRunHydro, "at 0.5 pace 2", [this] {
    const bool wanted = monitor.Percent < 20 || monitor.Percent > 60;
    if (std::exchange(monitor.Results, wanted) != wanted) monitor.ResultsChanged = true;
  });
  EXPECT_THAT(Lines("heard "), ElementsAre("FROMVB", "HIDERESULTS", "SHOWRESULTS"));
  const int withResults = std::stoi(Lines("201 updates, ").at(0));
  EXPECT_GT(withResults, 60);
  EXPECT_LT(withResults, 170);
  EXPECT_EQ(Crest(monitor.Flows.back(), monitor.Flows.front()), kFirstBranch - 1);
}

TEST_F(StandinRun, IsAskedLessOftenWhileItStandsStill) {
  letsSlow = true;
  Run(kRunHydro, "at 20 pace 5\nat 20 idle 60\nat 21 pace 1\nat 100 pace 50\nat 100 idle 10\n");
  EXPECT_GT(monitor.Slider, 8 * kInterval);
  EXPECT_EQ(monitor.Percent, 100);
}

TEST_F(StandinRun, IsToldOfHonestlyWhenItFails) {
  struct Case {
    const char* Script;
    const char* Line;
    const char* Printed;
  };
  const Case cases[] = {
      {"at 30 crash", "was ended by signal 6", "crest"},
      {"at 30 exit 3", "ended with exit code 3", "ends as the script says"},
      {"at 30 exit 0", nullptr, "ends as the script says"},
      {"silent", "ended with exit code 0, without ever making veskout.tmp", "before it began"},
      {"at 30 dance", "ended with exit code 2, without ever making veskout.tmp",
       "Type mismatch: standin.txt line 3: at 30 dance"}};
  for (const Case& c : cases) {
    Run(kRunHydro, c.Script);
    std::vector<std::string> expected = {
        "TavreskH has completed execution, taking a total of [0-9]+ seconds to run."};
    if (c.Line != nullptr) {
      expected.push_back(std::string("TavreskH ") + c.Line +
                         "; what it printed is in TavreskH.log.");
    }
    ASSERT_GE(monitor.Messages.size(), expected.size());
    for (auto said = monitor.Messages.end(); !expected.empty(); expected.pop_back()) {
      EXPECT_THAT(*--said, testing::MatchesRegex(expected.back())) << c.Script;
    }
    EXPECT_THAT(folder.Read("bin/TavreskH.log"), HasSubstr(c.Printed));
    EXPECT_FALSE(folder.Holds("bin/veskout.tmp") || folder.Holds("bin/veskin.tmp")) << c.Script;
  }
}

TEST_F(StandinRun, CostsTicksOnlyWhileItsFileMakesNoSense) {
  Run(kRunHydro,
      "at 0 rows -1\nat 0 idle 25\nat 0.5 rows 42\nat 0.5 idle 25\n"
      "at 1 cols 2000000000\nat 1 idle 25\nat 1.5 reclen -200\nat 1.5 idle 25\n"
      "at 2 reclen 2147483647\nat 2 idle 25\nat 2.5 cut 150\nat 2.5 idle 25\n"
      "at 3 garbage\nat 3 idle 25\nat 70 cut 1200\nat 70 idle 25\n");
  EXPECT_GE(monitor.Percents.at(0), 3.5F);
  EXPECT_THAT(monitor.Log, ElementsAre("show", "set up", "splash off"));
  EXPECT_EQ(monitor.Percent, 100);
  EXPECT_EQ(monitor.DrawingHeld, 0);
}

TEST_F(StandinRun, RunsBothInTurnUntilOneAborts) {
  Run(kRunBoth, "TavreskH\nat 50 message of H\nTavreskQ\nat 50 message of Q\n");
  EXPECT_THAT(Lines("sent MESSAGE of "), ElementsAre("H"));
  EXPECT_THAT(Lines("sent MESSAGE of ", "a/corvane_quality.out"), ElementsAre("Q"));
  EXPECT_THAT(Lines("switch -P", "a/corvane_quality.out"),
              ElementsAre("N: linkage file of another name"));
  EXPECT_EQ(monitor.Title, "100% - TavreskQ Progress");
  EXPECT_EQ(monitor.Titles.at(2), "DO, mg/L");
  EXPECT_THAT(monitor.Messages.back(), HasSubstr("TavreskH and Q have completed execution"));

  std::filesystem::remove(folder.Path("a/corvane_quality.out"));
  Run(kRunBoth, "at 40 msgbox -1 Dry bed|VeskH\nat 40 exit 1\n");
  EXPECT_EQ(ui.LastMessage(), "Dry bed");
  EXPECT_FALSE(folder.Holds("a/corvane_quality.out"));
  EXPECT_EQ(monitor.Messages.back(),
            "TavreskH ended with exit code 1; what it printed is in TavreskH.log.");
}

TEST_F(StandinRun, AsksForAFileAndPutsItsOutputWhereItIsLookedFor) {
  ui.Files = {{"/x/y.lnk"}};
  Run(kRunQual, "");
  EXPECT_EQ(ui.FileDialogs.at(0).Title, "Select hydrodynamic linkage file");
  EXPECT_THAT(Lines("answer ", "a/corvane_quality.out"), Contains("OK/x/y.lnk"));

  project.HydroFile = "runs_HNP\\Corvane_River.hnp";
  folder.Write("a/three_branches.prj", "HYDRODYNAMIC_INPUT_FILE: " + project.HydroFile + "\r\n");
  folder.Write("a/Runs_hnp/corvane_river.hnp", folder.Read("a/corvane_river.hnp"));
  std::filesystem::create_directory("a/Runs_Out");
  Run(kRunHydro, "at 1 exit 0");
  const std::string output = "a/Runs_Out/Corvane_River.out";
  EXPECT_TRUE(folder.Holds(output));
  std::filesystem::remove(output);
  hydroOptions.Files.Output = false;
  Run(kRunHydro, "");
  EXPECT_FALSE(folder.Holds(output) || folder.Holds("a/Runs_Out/Corvane_River.bmd"));
}

TEST_F(StandinRun, EndsByItselfWhenNobodyIsLeft) {
  Run(kRunHydro, "at 20 idle 1000000", [this] {
    if (monitor.Percent > 10) std::filesystem::remove(folder.Path("bin/veskin.tmp"));
  });
  EXPECT_THAT(Lines("ends"), ElementsAre(": nobody listens any more"));

  // One whose parent ends, while its file stays.
  std::filesystem::current_path("bin");
  folder.Write("bin/veskin.tmp", FieldBytes(kListening, kWordWidth));
  EXPECT_EQ(std::system("./TavreskH.exe -ON > orphan.txt & sleep 0.2"), 0);
  for (int look = 0; look < 100 && Lines("ends", "bin/orphan.txt").empty(); ++look) {
    SteadyClock().Sleep(20);
  }
  EXPECT_THAT(Lines("ends", "bin/orphan.txt"), ElementsAre(": nobody listens any more"));
}

}  // namespace
}  // namespace lomaris

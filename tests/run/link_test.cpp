// The link to a running model: the test plays the model through its own side of the two files.

#include <algorithm>
#include <cmath>
#include <limits>

#include <gmock/gmock.h>

#include "run_fixtures.h"

namespace lomaris {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST_F(LinkTest, SetsUpOnTheFirstUpdateAndShowsEachPercentThatMoved) {
  state.Process = 4711;
  EXPECT_EQ(answers->Read(), "FROMVB");
  SendUpdate(0);
  EXPECT_THAT(monitor.Log, ElementsAre("show", "set up"));
  EXPECT_THAT(monitor.Titles, ElementsAre("Section", "Flow", "Depth, ft"));
  EXPECT_THAT(monitor.Labels, ElementsAre("1: ", "1: Mouth", "2: "));
  EXPECT_EQ(monitor.TimeRemaining, "Calculating...");
  EXPECT_EQ(monitor.DateTime, "05/01/97 12:00");
  EXPECT_THAT(monitor.Columns[2], ElementsAre(-4, -5, -6));
  clock.Time += 60;
  SendUpdate(24.6F, 7);
  EXPECT_EQ(monitor.Title, "25% - TavreskH Progress");
  EXPECT_EQ(monitor.TimeRemaining, "Time Remaining: 00:03:04");
  EXPECT_THAT(monitor.Columns[1], ElementsAre(7, 2, 3));
  SendUpdate(25.1F);
  EXPECT_THAT(processes.Titles,
              ElementsAre("0% - TavreskH Progress (Fortran)", "25% - TavreskH Progress (Fortran)"));
  EXPECT_EQ(monitor.DrawingHeld, 0);
  EXPECT_EQ(answers->Read(), "FROMVB") << "an update has no answer";
}

TEST_F(LinkTest, SlowsDownWhileThePercentStandsStill) {
  SendUpdate(0);
  monitor.ResultsChanged = true;
  for (const int interval : {750, 1125, 1688}) {
    SendUpdate(0, 9);
    EXPECT_EQ(monitor.Slider, interval);
  }
  EXPECT_EQ(monitor.Columns[1][0], 1) << "nothing is read";
  EXPECT_TRUE(monitor.ResultsChanged) << "the wish waits for an update that moves";
  monitor.Slider = 50000;
  SendUpdate(0);
  EXPECT_EQ(monitor.Slider, 60000);

  monitor.Results = false;
  SendUpdate(2, 9);
  EXPECT_EQ(answers->Read(), "HIDERESULTS");
  EXPECT_FALSE(monitor.ResultsChanged);
  EXPECT_EQ(monitor.Columns[1][0], 1) << "hidden results are not read";
}

TEST_F(LinkTest, FitsTheChartToTheLargestValueSinceTheLastRescale) {
  monitor.Grid = false;
  struct Step {
    float Percent, Value;
    bool Rescale;
    double Axis;
  };
  const Step steps[] = {{0, 3, false, 4},     {0.5F, 950, false, 1000}, {0.75F, 8, false, 1000},
                        {1, 4, false, 5},     {2, 30, true, 40},        {3, -3, true, 4},
                        {4, 7e-3F, false, 4}, {5, HUGE_VALF, true, 4}};
  for (const Step& step : steps) {  // at 1 per cent the calculating ends, and the axis is fitted
    state.RescaleChart |= step.Rescale;
    SendUpdate(step.Percent, step.Value);
    EXPECT_NEAR(monitor.AxisMaximum, step.Axis, 1e-9) << step.Percent;
  }
  EXPECT_THAT(monitor.Charted, ElementsAre(HUGE_VALF, 2, 3));
  state.ChartColumn = 2;
  state.RescaleChart = true;
  SendUpdate(6);
  EXPECT_EQ(monitor.AxisMaximum, 1) << "no value above 0";
  EXPECT_TRUE(monitor.Columns.empty());
}

TEST_F(LinkTest, AnswersEachQuestionInItsWay) {
  struct Case {
    const char* Command;
    std::vector<std::string> Texts;
    int Type;
    std::vector<Answer> Pressed;
    std::vector<std::string> Entered;
    std::string Expected;
    bool Cleared;
  };
  const std::string longest = "/" + std::string(97, 'x');
  const std::string cut = std::string(98, 'y');
  const Case cases[] = {
      {"MESSAGE", {"  Step 3"}, 0, {}, {}, "DONE", true},
      {"MSGBOX", {"A", "T"}, 0, {Answer::Ok}, {}, "OK", false},
      {"MSGBOX", {"B", "T"}, -2, {Answer::Cancel}, {}, "CANCEL", false},
      {"MSGBOX", {"C", "T"}, 7, {}, {}, "CANCEL", false},
      {"msgbox", {"D", "T"}, 0x20202020, {}, {}, "", false},
      {"msgbox", {"E", "T"}, 86401, {}, {}, "CANCEL", false},
      {"QUESTION", {"Q?", "T"}, 0, {Answer::Yes}, {}, "YES", true},
      {"QUESTION", {"Q?", "T"}, 0, {Answer::No}, {}, "NO", true},
      {"QUESTION", {"Q?"}, 0, {Answer::Cancel}, {}, "CANCEL", true},
      {"INPUTBOX", {"P", "T", "1.5"}, 0, {}, {"Z\xC3\xBCrich"}, "OKZ\xC3\xBCrich", true},
      {"INPUTBOX", {"P"}, 0, {}, {cut + "yyy"}, "OK" + cut, true},
      {"INPUTBOX", {"P"}, 0, {}, {""}, "CANCEL", true},
      {"OPENFILE", {"F", "lnk", "a.lnk"}, 0, {}, {longest + "x", longest}, "OK" + longest, false},
      {"OPENFILE", {"F"}, 0, {}, {""}, "CANCEL", false},
      {"DANCE", {"A"}, 0, {}, {}, "", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.Command) + " " + c.Expected);
    ui.Answers = {c.Pressed.begin(), c.Pressed.end()};
    for (const std::string& entered : c.Entered) {
      if (c.Command == std::string("INPUTBOX")) {
        ui.Texts.push_back(entered);
      } else {
        ui.Files.push_back(entered.empty() ? std::vector<std::string>() : std::vector{entered});
      }
    }
    EXPECT_EQ(Send(c.Command, c.Texts, c.Type), c.Expected);
    EXPECT_EQ(writer->Command().empty(), c.Cleared);
    EXPECT_EQ(ui.Answers.size() + ui.Texts.size() + ui.Files.size(), 0u);
  }
  EXPECT_EQ(monitor.Messages[0].size(), 200u) << "a message stays untrimmed";
  EXPECT_THAT(monitor.Messages, ElementsAre(HasSubstr("  Step 3 "), "Message: A", "Message: B",
                                            "Message: C", "Message: E"));
  EXPECT_THAT(monitor.Log, testing::IsSupersetOf({"T: C (7 s)", "T: E (86400 s)"}));
  EXPECT_EQ(ui.FileDialogs[0].DefaultExtension, "lnk");
  EXPECT_EQ(ui.FileDialogs[0].Flags, 4096u);
  EXPECT_EQ(ui.Messages.back().Text,
            "The model takes a path of 98 bytes at most, and this one is longer: " + longest + "x");
  EXPECT_EQ(std::filesystem::current_path().string() + "/", folder.Path());
  ui.Files = {{"/\xC3\xBC"}};
  EXPECT_EQ(Send("OPENFILE", {"Once"}), "OK/\xC3\xBC");
  ExchangeFile bytes("veskin.tmp");
  bytes.Open(ExchangeFile::Mode::Existing);
  EXPECT_EQ(bytes.ReadBytes(1, 6), "OK/\xC3\xBC ") << "the path's own bytes";
  Poll();
  EXPECT_EQ(ui.FileDialogs.size(), 4u) << "the answer has not been taken up";
}

TEST_F(LinkTest, TellsARepeatByItsTextAndAnAbortByItsType) {
  ui.Answers = {Answer::Cancel};
  EXPECT_EQ(Send("MSGBOX", {""}, -2), "CANCEL") << "no text is one as well";
  EXPECT_EQ(Send("MSGBOX", {"Dry bed", "VeskH"}, -1), "OK");
  EXPECT_TRUE(state.Abort);
  EXPECT_EQ(ui.Messages[1].BoxButtons, Buttons::Ok);
  EXPECT_EQ(Send("MSGBOX", {"Dry bed", "VeskH"}, 0), "") << "the same text is no new box";
  ui.Answers = {Answer::Yes, Answer::No};
  EXPECT_EQ(Send("QUESTION", {"Dry bed"}), "YES") << "questions are asked each time";
  EXPECT_EQ(Send("QUESTION", {"Wet bed"}), "NO");
  EXPECT_EQ(Send("MSGBOX", {"Wet bed"}, 0), "") << "a question counts as well";
  EXPECT_THAT(monitor.Log, testing::Each("splash off"));
}

TEST_F(LinkTest, SaysCancelOnEachTickOnceTheModelListens) {
  monitor.Cancel = true;
  Poll();
  EXPECT_FALSE(model.IsOpen()) << "no record length yet: the file is not ready";
  EXPECT_FALSE(monitor.Cancel) << "asked before the model listened";
  SendUpdate(1);
  monitor.Cancel = true;
  for (int tick = 0; tick < 2; ++tick) {
    answers->Blank();
    Poll();
    EXPECT_EQ(answers->Read(), "CANCEL");
  }
  writer = std::make_unique<ModelFileWriter>("veskout.tmp", 3);
  Poll();
  EXPECT_TRUE(monitor.Cancel) << "though the file is made anew";
}

TEST_F(LinkTest, SurvivesWhatIsNotThereYetAndSetsUpAnewWithoutFlicker) {
  writer->SetCommand("UPDATE");
  Poll();
  EXPECT_THAT(monitor.Log, ElementsAre("show")) << "the rest is not there yet";
  SendUpdate(std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(monitor.Percent, -1);

  constexpr std::int32_t kHuge = std::numeric_limits<std::int32_t>::max();
  struct Damage {
    std::int64_t Position;
    std::int32_t Right;
    std::vector<std::int32_t> Claims;
  };
  const Damage damages[] = {{1, 200, {0, 1, 199, -200, kHuge, 100000}},
                            {201, 3, {-1, 2, 4, kHuge, -kHuge - 1}},
                            {205, 2, {0, -7, 201, kHuge}}};
  for (const auto& [position, right, claims] : damages) {
    ExchangeFile file("veskout.tmp");
    file.Open(ExchangeFile::Mode::Existing);
    for (const std::int32_t claim : claims) {
      file.Write(position, NumberBytes(claim));
      state.ResultsReady = false;
      Poll();
      EXPECT_FALSE(state.ResultsReady) << position << " " << claim;
    }
    file.Write(position, NumberBytes(right));
  }
  EXPECT_EQ(std::ranges::count(monitor.Log, "show"), 1);
  EXPECT_THAT(monitor.Messages, ElementsAre("The model sends results of 2 cross sections, but the "
                                            "network on disk has 3: they cannot be shown."));

  SendUpdate(5);
  EXPECT_TRUE(state.ResultsReady) << "and then all is well again";
  std::filesystem::resize_file("veskout.tmp", 600);
  writer->SetUpdate("", 6);
  Poll();
  EXPECT_EQ(monitor.Percent, 6);
  EXPECT_EQ(monitor.DrawingHeld, 0) << "though the columns are gone";
  std::filesystem::remove("veskout.tmp");
  Poll();
  writer = std::make_unique<ModelFileWriter>("veskout.tmp", 3);
  SendUpdate(7);
  EXPECT_EQ(monitor.Percent, 7) << "a file made anew is followed";
}

}  // namespace
}  // namespace lomaris

// What is started, with which words, and the texts of times.

#include <limits>

#include <gmock/gmock.h>

#include "run/duration.h"
#include "run/monitor_view.h"
#include "run/poll_timer.h"
#include "run/programs.h"
#include "run/run_options.h"
#include "support/fake_run_ports.h"
#include "support/scripted_ui.h"

namespace lomaris {
namespace {

TEST(CommandTail, HoldsItsSwitchesInTheirOrder) {
  EXPECT_EQ(CommandTail(HydroRunOptions()), " -LY -FR -S1 -IY -MY -EY -OY -BY");
  EXPECT_EQ(CommandTail(HydroRunOptions{false, true, 12, false, {false, true, false, true}}),
            " -LN -FW -S12 -IN -MN -EY -ON -BY");
  EXPECT_EQ(CommandTail(QualRunOptions()), " -PY -SU -TW -MY -EY -OY -BY");
  EXPECT_EQ(
      CommandTail(QualRunOptions{false, Transport::Quickest, true, {true, false, true, false}}),
      " -PN -SQ -TD -MY -EN -OY -BN");
  const BothRunOptions both{false, Transport::Holly, false, {}};
  EXPECT_EQ(FirstTail(both), " -LY -FR -IN -MY -EY -OY -BY");
  EXPECT_EQ(SecondTail(both), " -PN -SH -TW -MY -EY -OY -BY");
}

TEST(WaspStep, TakesWholeNumbersAboveZeroOnly) {
  ScriptedUi ui;
  ui.Texts = {"", "0", "-2", "two", "1e99", " 5 "};
  int step = 3;
  for (const int expected : {3, 3, 3, 3, 3, 5}) {
    AskWaspStep(step, ui);
    EXPECT_EQ(step, expected);
  }
  EXPECT_EQ(ui.InputBoxes[0].Prompt,
            "Enter time step increment for values placed in the WASP linkage file. For example, "
            "enter 2 to place results from every other time step into the linkage file:");
}

TEST(Command, LosesItsQuotesOnlyWhereAFolderIsNamed) {
  const ProgramCall call = ParseCommand("\"/opt/Post View\\graph.EXE\" -a \"b c\"");
  EXPECT_EQ(call.Text, "/opt/Post View\\graph.EXE -a b c");
  EXPECT_EQ(call.Program, "/opt/Post View/graph.EXE");
  EXPECT_EQ(call.Arguments, " -a b c");
  const ProgramCall bare = ParseCommand("\"Graph.exe\" -o \"a\\b c\"");
  EXPECT_EQ(bare.Text, "\"Graph.exe\" -o \"a\\b c\"");
  EXPECT_EQ(bare.Arguments, " -o \"a\\b c\"");
}

TEST(TimeLeft, IsTheEstimateForASteadyModelAndDoesNotJumpForAnother) {
  constexpr double kSecond = 1.0 / 86400;
  EXPECT_NEAR(SteadyTimeLeft(100 * kSecond, 99 * kSecond, kSecond), 99 * kSecond, 1e-12);
  double shown = SteadyTimeLeft(100 * kSecond, 200 * kSecond, kSecond);
  EXPECT_NEAR(shown, 108 * kSecond, kSecond);
  for (int i = 0; i < 60; ++i) shown = SteadyTimeLeft(shown, 200 * kSecond, kSecond);
  EXPECT_NEAR(shown, 190 * kSecond, kSecond) << "ten seconds late";
  EXPECT_EQ(SteadyTimeLeft(100 * kSecond, 0, kSecond), 0) << "the end";
}

TEST(Texts, OfTimesAndResults) {
  EXPECT_EQ(DurationText(59.4), "59 seconds");
  EXPECT_EQ(DurationText(59.6), "60 seconds");
  EXPECT_EQ(DurationText(60), "1 minutes 0 seconds");
  EXPECT_EQ(DurationText(3599.7), "59 minutes 59 seconds");
  EXPECT_EQ(DurationText(7507.2), "2 hours 5 minutes 7 seconds");
  EXPECT_EQ(TimeLeftText(86399.6 / 86400), "1 day 00:00:00");
  EXPECT_EQ(TimeLeftText(12.5), "12 days 12:00:00");
  EXPECT_EQ(ResultText(0.125F), "0.13");
  EXPECT_EQ(ResultText(131072.125F), "131072.13");
  EXPECT_EQ(ResultText(-std::numeric_limits<float>::infinity()), "-Inf");
}

TEST(PollTimer, WaitsFromTheEndOfATickAndTakesItsInterval) {
  FakeClock clock;
  std::vector<double> ticks;
  PollTimer timer(
      clock,
      [&] {
        ticks.push_back(clock.Time - 1000);
        clock.Sleep(1000);
        timer.Turn();  // a box of the tick turns the event loop
        return ticks.size() == 1 ? 500 : 0;
      },
      [&] { return clock.Time >= 1003 ? 125 : 60000; });
  timer.Start(250);
  for (; clock.Time < 1004; clock.Sleep(125)) timer.Turn();
  EXPECT_THAT(ticks, testing::ElementsAre(0.25, 1.75, 3));
}

}  // namespace
}  // namespace lomaris

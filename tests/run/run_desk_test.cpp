// From the click on the Run menu to the end of the run, with a program that does what the test
// says.

#include <gmock/gmock.h>

#include "run_fixtures.h"

namespace lomaris {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DeskOfRuns, RunsOneModelAndCleansUpBehindIt) {
  desk.RunItem(kRunHydro);
  EXPECT_EQ(control, folder.Path("a/\xC3\xBC.prj") + "\r\n") << "the path's own bytes";
  EXPECT_THAT(log, ElementsAre("SaveForm", "options", "SaveForm", "show monitor", picture,
                               "TavreskH Progress", "Close", "unload options"));
  const StartRequest& request = processes.Started.at(0);
  EXPECT_EQ(request.Program, folder.Path("bin/TavreskH.exe"));
  EXPECT_EQ(request.Arguments, "  -LY -FR -S1 -IY -MY -EY -OY -BY");
  EXPECT_EQ(request.LogFile, folder.Path("bin/TavreskH.log"));
  EXPECT_EQ(request.Style, WindowStyle::Minimised);
  EXPECT_THAT(monitor.Messages, ElementsAre("TavreskH has completed execution, taking a total of "
                                            "0 seconds to run."));
  EXPECT_THAT(monitor.Log, ElementsAre("show", "set up", "splash off"));
  EXPECT_EQ(monitor.TimeRemaining, "");
  EXPECT_FALSE(folder.Holds("bin/veskout.tmp") || folder.Holds("bin/veskin.tmp"));
  EXPECT_EQ(std::filesystem::current_path().string() + "/", folder.Path());
  EXPECT_EQ(ui.LastMessage(),
            "A model is still running. Wait for its end, or cancel it in the window that shows its "
            "progress.\r\n\r\nDo you want to end it by force? Its files may be left incomplete.");
  EXPECT_TRUE(desk.NoneRuns());
}

TEST_F(DeskOfRuns, TellsHonestlyHowAProgramEnded) {
  struct Case {
    bool Starts, Plays;
    ProcessEnd End;
    const char* Line;
  };
  const Case cases[] = {
      {true, true, {3, 0}, " ended with exit code 3; what it printed is in TavreskQ.log."},
      {true, true, {0, 11}, " was ended by signal 11; what it printed is in TavreskQ.log."},
      {true,
       false,
       {},
       " ended with exit code 0, without ever making veskout.tmp; what it printed "
       "is in TavreskQ.log."},
      {false, true, {}, " could not be started: Permission denied."}};
  for (const Case& c : cases) {
    plays = c.Plays;
    processes.LetStart = c.Starts;
    processes.HowItEnds = c.End;
    desk.RunItem(kRunQual);
    EXPECT_EQ(monitor.Messages.at(1), std::string("TavreskQ") + c.Line);
    EXPECT_THAT(monitor.Log, testing::Contains("show"));
  }
  std::filesystem::remove("bin/tavreskq.EXE");
  desk.RunItem(kRunQual);
  EXPECT_EQ(ui.LastMessage(), "Unable to find file: TavreskQ.exe");
  EXPECT_EQ(monitor.Messages.size(), 1u) << "told already";
}

TEST_F(DeskOfRuns, RunsBothInTurnUnlessTheFirstAborts) {
  desk.RunItem(kRunBoth);
  EXPECT_THAT(log, ElementsAre("SaveForm", "options", "unload monitor", "SaveForm", "show monitor",
                               picture, "TavreskH Progress", "Close", "unload monitor",
                               "TavreskQ Progress", "Close", "unload options"));
  EXPECT_EQ(processes.Started.at(0).Arguments, "  -LY -FR -IY -MY -EY -OY -BY");
  EXPECT_EQ(processes.Started.at(1).Program, folder.Path("bin/tavreskq.EXE"));
  EXPECT_EQ(processes.Started.at(1).Arguments, "  -PN -SU -TW -MY -EY -OY -BY");
  EXPECT_THAT(monitor.Messages, ElementsAre("TavreskH and Q have completed execution, taking a "
                                            "total of 0 seconds to run."));
  log.clear();
  abortText = "Dry bed";
  desk.RunItem(kRunBoth);
  EXPECT_EQ(ui.LastMessage(), "Dry bed") << "said last of all";
  EXPECT_EQ(processes.Started.size(), 3u);
  EXPECT_EQ(log.back(), "Close");
}

TEST_F(DeskOfRuns, AsksBeforeTheSecondModelWorksOnWhatTheFirstLeft) {
  const std::string line = "TavreskH ended with exit code 2; what it printed is in TavreskH.log.";
  processes.HowItEnds = {2, 0};
  ui.Answers = {Answer::No};
  desk.RunItem(kRunBoth);
  EXPECT_EQ(ui.LastMessage(),
            "TavreskH did not run to its end. Do you want to run TavreskQ all the same?");
  EXPECT_EQ(processes.Started.size(), 1u);
  EXPECT_EQ(monitor.Messages.at(1), line);
  EXPECT_EQ(log.back(), "unload options");
  ui.Answers = {Answer::Yes};
  desk.RunItem(kRunBoth);
  EXPECT_EQ(processes.Started.size(), 3u);
  EXPECT_EQ(monitor.Messages.at(0), line) << "also while the second runs";
}

TEST_F(DeskOfRuns, NamesTheFilesWhoseChangesTheRunWillNotSee) {
  workbench.Unsaved = {"x.hnp", "shapes.xsg"};
  ui.Answers = {Answer::Cancel};
  desk.RunItem(kRunHydro);
  EXPECT_EQ(
      ui.LastMessage(),
      "There are unsaved changes to:\r\n\r\nx.hnp\r\nshapes.xsg\r\n\r\nThe run uses the files "
      "as they were last saved, without these changes.");
  EXPECT_THAT(log, ElementsAre("SaveForm"));
  ui.Answers = {Answer::Ok};
  desk.RunItem(kRunHydro);
  EXPECT_EQ(processes.Started.size(), 1u);
}

TEST_F(DeskOfRuns, RefusesBeforeAnythingIsDeleted) {
  project.Dirty = true;
  ui.Answers = {Answer::Yes, Answer::Cancel, Answer::Cancel};
  saves = false;
  desk.RunItem(kRunHydro);
  EXPECT_THAT(log, IsEmpty());
  {
    FolderLock another;
    EXPECT_TRUE(another.Take(folder.Path("bin/")));
    desk.RunItem(kRunHydro);
    EXPECT_THAT(ui.LastMessage(), testing::StartsWith("Unable to initialize"));
    EXPECT_EQ(folder.Read("bin/veskout.tmp"), "left over");
  }
  std::filesystem::remove("bin/veskout.tmp");
  folder.Write("bin/veskout.tmp/x", "");
  desk.RunItem(kRunHydro);
  EXPECT_EQ(ui.LastMessage(),
            "Unable to initialize, please make sure that VeskH is not already running.");
  EXPECT_THAT(processes.Started, IsEmpty());
  project.Dirty = false;
  RunDesk nowhere({project, ui, settings, processes, clock, workbench, "/proc"}, *this);
  nowhere.RunItem(kRunBoth);
  EXPECT_EQ(ui.LastMessage(),
            "Unable to run a model: nothing can be written to the directory"
            "\r\n\r\n/proc/\r\n\r\nThe model and this program exchange their files there.");
}

TEST_F(DeskOfRuns, StartsTheUsersProgramsAndLeavesThemAlone) {
  desk.RunItem(kRunPostProcessor);
  EXPECT_EQ(processes.Launched.at(0).Program, "Graph.exe") << "the system may know it";
  EXPECT_EQ(processes.Launched.at(0).Directory, folder.Path("bin/"));
  auto& command = settings.Values[{"Other Programs", "KORB"}];
  command = "\"" + folder.Path("a\\store.exe") + "\" -w \"x\"";
  folder.Write("a/Store.EXE", "");
  processes.LetStart = false;
  desk.RunItem(kRunDataStore);
  EXPECT_EQ(processes.Launched.at(1).Program, folder.Path("a/Store.EXE"));
  EXPECT_EQ(ui.LastMessage(), "Unable to execute specified program:\r\n\r\n" +
                                  folder.Path("a\\store.exe") +
                                  " -w x\r\n\r\nPlease check preferences.");
  command = "store.com";
  desk.RunItem(kRunDataStore);
  EXPECT_EQ(ui.LastMessage(), "Invalid filename: store.com");
  EXPECT_EQ(processes.Launched.size(), 2u);
}

}  // namespace
}  // namespace lomaris

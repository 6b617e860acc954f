#include "workspace/project_desk.h"

#include "desk_fixture.h"

namespace lomaris {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(DeskTest, OpensAProjectShowsItAndRemembersIt) {
  const std::string first = WriteProject("one.prj", "one.hnp");
  const std::string second = WriteProject("two.prj", "None");
  hydro.HydroLoaded = true;
  ui.Files = {{first}};
  EXPECT_TRUE(desk.Open());
  EXPECT_EQ(ui.FileDialogs[0].Filter, "Project (*.prj)|*.prj|");
  EXPECT_EQ(ui.FileDialogs[0].Title, "Open");
  EXPECT_EQ(view.Title, "Lomaris - " + first);
  EXPECT_EQ(view.Shown.Texts[kHydroSlot], "one.hnp");
  EXPECT_TRUE(view.ProjectOpen);
  EXPECT_FALSE(project.Dirty);
  EXPECT_FALSE(hydro.HydroLoaded) << "the network of the former project must not stay";

  EXPECT_TRUE(desk.OpenProject(second));
  EXPECT_EQ(view.Title, "Lomaris - " + second);
  EXPECT_EQ(view.Shown.Texts[kHydroSlot], "(Not Specified)");
  EXPECT_THAT(view.RecentNames, ElementsAre(second, first));
  EXPECT_TRUE(desk.OpenRecent(1));
  EXPECT_THAT(view.RecentNames, ElementsAre(first, second));
  EXPECT_EQ((settings.Values[{"MRUFiles", "0"}]), first);
}

TEST_F(DeskTest, AsksBeforeItGivesUpUnsavedChanges) {
  const std::string name = WriteProject("one.prj", "one.hnp");
  ASSERT_TRUE(desk.OpenProject(name));
  view.Shown.Description = "changed";
  desk.FieldEdited();

  ui.Answers = {Answer::Cancel};
  EXPECT_FALSE(desk.Close());
  EXPECT_EQ(ui.LastMessage(), "Save changes to Project?");
  EXPECT_EQ(ui.Messages.back().BoxButtons, Buttons::YesNoCancel);
  EXPECT_TRUE(view.ProjectOpen);

  workbench.LetClose = false;
  ui.Answers = {Answer::No};
  EXPECT_FALSE(desk.QueryUnload()) << "an editor stays open";
  workbench.LetClose = true;
  ui.Answers = {Answer::Yes};
  EXPECT_TRUE(desk.Close());
  EXPECT_THAT(folder.Read("one.prj"), HasSubstr("\r\nchanged\r\n"));
  EXPECT_THAT(folder.Read("one.bak"), HasSubstr("\r\none.prj\r\n"));
  EXPECT_EQ(view.Title, "Lomaris");
  EXPECT_FALSE(view.ProjectOpen);
  EXPECT_EQ(project, ProjectData());
}

TEST_F(DeskTest, AProjectThatCannotBeReadIsNotOverwritten) {
  ASSERT_TRUE(desk.OpenProject(WriteProject("good.prj", "good.hnp")));
  const ProjectForm before = view.Shown;
  const std::string bad =
      folder.Write("bad.prj", "VESKH_AUXILLARY_FILES:\r\n 1 \r\n99\r\nx.bcf\r\n");
  ui.Answers = {Answer::Abort};
  EXPECT_FALSE(desk.OpenProject(bad));
  EXPECT_EQ(view.Shown, before);
  EXPECT_EQ(view.Title, "Lomaris - " + folder.Path("good.prj"));

  ui.Files = {{}};  // the save asks for a name, and is cancelled
  EXPECT_FALSE(desk.SaveProject(false));
  EXPECT_EQ(ui.FileDialogs.back().Title, "Save As");
  EXPECT_EQ(ui.FileDialogs.back().FileName, bad);
  EXPECT_THAT(folder.Read("bad.prj"), StartsWith("VESKH_AUXILLARY_FILES:"));
}

TEST_F(DeskTest, SavesUnderANewNameWithTheRightExtension) {
  ASSERT_TRUE(desk.OpenProject(WriteProject("one.prj", "one.hnp")));
  ui.Files = {{folder.Path("two.txt")}, {folder.Path("two.PRJ")}};
  EXPECT_TRUE(desk.SaveProject(true));
  EXPECT_EQ(ui.LastMessage(), "You must save the file with a file extension of prj");
  EXPECT_EQ(view.Title, "Lomaris - " + folder.Path("two.PRJ"));
  EXPECT_EQ(project.FileName, folder.Path("two.PRJ"));
  EXPECT_EQ(folder.Entries(), "one.prj two.PRJ");
}

TEST_F(DeskTest, TellsWhichNamesMeanOtherFilesAfterASaveElsewhere) {
  const std::string library = folder.Write("lib/shapes.xsg", "");
  folder.Write("one.hnp", "");
  folder.Write("other/one.hnp", "another river");
  ASSERT_TRUE(desk.OpenProject(WriteProject("one.prj", "one.hnp")));
  view.Shown.Texts[kLibrarySlot] = library;
  view.Shown.Texts[2] = "not_there_before.lat";
  ui.Files = {{folder.Path("other/one.prj")}, {folder.Path("other/one.prj")}};
  workbench.LetClose = false;
  EXPECT_FALSE(desk.SaveProject(true)) << "an editor would save over the other folder's file";
  workbench.LetClose = true;
  std::filesystem::current_path(folder.Path("other"));
  EXPECT_TRUE(desk.SaveProject(true));
  EXPECT_EQ(ui.LastMessage(),
            "From its new directory the project finds other files, or none, under these names:"
            "\r\n\r\none.hnp\r\n\r\nCopy the files there, or select them again.");
}

TEST_F(DeskTest, AsksBeforeAReplacedNameOverwritesAProject) {
  const std::string other = WriteProject("new/one.prj", "other.hnp");
  folder.Write("old/one.hnp", "");
  ASSERT_TRUE(desk.OpenProject(WriteProject("old/one.prj", "one.hnp")));
  ui.Texts = {"/OLD/", "/new/"};
  desk.Replace();
  EXPECT_EQ(view.Title, "Lomaris - " + other);
  ui.Answers = {Answer::No};
  EXPECT_FALSE(desk.SaveProject(false));
  EXPECT_EQ(ui.LastMessage(), other + " already exists.\r\nDo you want to replace it?");
  EXPECT_THAT(folder.Read("new/one.prj"), HasSubstr("other.hnp"));
  ui.Answers = {Answer::Yes};
  EXPECT_TRUE(desk.SaveProject(false));
  EXPECT_THAT(folder.Read("new/one.bak"), HasSubstr("other.hnp"));
  EXPECT_THAT(ui.LastMessage(), HasSubstr("\r\none.hnp\r\n")) << "it is found in the old folder";
  EXPECT_EQ(view.RecentNames[0], other);
}

TEST_F(DeskTest, EditsWhatASlotNames) {
  workbench.Editors = {"HNP", "BCF", "MET"};
  ASSERT_TRUE(desk.OpenProject(WriteProject("one.prj", "one.hnp")));
  desk.EditSlot(kHydroSlot);
  EXPECT_EQ(ui.LastMessage(),
            "File has not been specified or does not exist:\r\n\r\none.hnp\r\n\r\nPlease specify "
            "path to an existing file.");
  EXPECT_THAT(workbench.Opened, IsEmpty());

  for (const char* name : {"one.hnp", "d.bcf", "w.met"}) folder.Write(name, "");
  view.Shown.Lists[kBoundarySlotQ] = {{"u.bcf     (US Branch 1)", "d.bcf     (DS Branch 12)"}, 1};
  view.Shown.Lists[kMetSlot] = {{"v.met", "w.met"}, 1};
  for (const std::size_t slot : {kHydroSlot, kBoundarySlotQ, kMetSlot}) {
    // The form is read anew after each edit, and a list starts at its first row.
    if (slot != kHydroSlot) view.Shown.Lists[slot].Selected = 1;
    desk.EditSlot(slot);
  }
  EXPECT_THAT(workbench.Opened,
              ElementsAre(EditRequest{.FileName = "one.hnp", .Kind = "HNP", .Slot = 0},
                          EditRequest{.FileName = "d.bcf", .Kind = "BCF", .Slot = 9, .Row = 12},
                          EditRequest{.FileName = "w.met", .Kind = "MET", .Slot = 8, .Row = 2}));
  EXPECT_EQ(project.MetCount, 2) << "the form is stored before the editor opens";
}

TEST_F(DeskTest, OpensOtherNetworksAsideAndAsksAgainWhatAnEditorHasChanged) {
  const std::string own = folder.Write("one.hnp", ""), other = folder.Write("two.hnp", "");
  ASSERT_TRUE(desk.OpenProject(WriteProject("one.prj", "one.hnp")));
  ui.Files = {{other}, {own}, {folder.Path("s.xsg")}};
  for (const std::size_t item : {0u, 0u, 2u}) desk.OpenInputFile(item);
  desk.CreateInputFile(0);
  EXPECT_THAT(workbench.Opened, ElementsAre(EditRequest{.FileName = other, .Aside = true},
                                            EditRequest{.FileName = own},
                                            EditRequest{.FileName = folder.Path("s.xsg")},
                                            EditRequest{.Kind = "HNP", .Aside = true}));
  ui.Answers = {Answer::Cancel, Answer::Ok};
  desk.BuildQNP();
  desk.CreateInputFile(1);
  EXPECT_EQ(workbench.Opened.size(), 5u);
  EXPECT_EQ(workbench.Opened.back(), (EditRequest{.FileName = "QNP", .Aside = true}));
  EXPECT_THAT(ui.LastMessage(), HasSubstr("parameters are appropriate to this modeling situation."
                                          "\r\n\r\nNote that this new created file"));
  desk.RemoveFile(2);
  workbench.OnClose = [&] { project.HydroFile = "saved_as.hnp"; };
  workbench.LetRelease = false;
  ui.Answers = {Answer::No};
  EXPECT_FALSE(desk.Close()) << "the network in memory has to stay";
  workbench.LetRelease = true;
  workbench.OnClose = [&] { project.HydroFile = "saved_again.hnp"; };
  ui.Answers = {Answer::No, Answer::Cancel};
  EXPECT_FALSE(desk.Close());
  workbench.OnClose = [] {};
  ui.Answers = {Answer::No};
  EXPECT_TRUE(desk.Close()) << "asked once where nothing has changed since";
}

TEST_F(DeskTest, WarnsOncePerKindBeforeAFileIsSelected) {
  ASSERT_TRUE(desk.OpenProject(WriteProject("one.prj", "one.hnp")));
  ui.Answers = {Answer::Cancel};
  desk.SelectExisting(kHydroSlot);
  EXPECT_THAT(ui.LastMessage(), StartsWith("The structure of the Hydrodynamic Input file is key"));
  EXPECT_THAT(ui.LastMessage(), testing::EndsWith("\r\n\r\nDo you want to continue?"));
  EXPECT_FALSE(project.Dirty);

  ui.Files = {{folder.Path("two.hnp")}, {}};
  desk.SelectExisting(kHydroSlot);
  EXPECT_EQ(project.HydroFile, folder.Path("two.hnp"));
  EXPECT_TRUE(project.Dirty);
  project.Dirty = false;
  desk.SelectExisting(kHydroSlot);
  EXPECT_EQ(project.HydroFile, folder.Path("two.hnp"));
  EXPECT_FALSE(project.Dirty) << "a cancelled dialog changes nothing";
  EXPECT_EQ(ui.Messages.size(), 1u);

  ui.Answers = {Answer::Ok, Answer::Ok};
  ui.Files = {{"a.lat"}, {"b.wit"}, {"c.xsg"}};
  for (const std::size_t slot : {2u, 3u, 4u}) desk.SelectExisting(slot);
  EXPECT_EQ(ui.Messages.size(), 3u) << "one for auxiliary files, one for the library";
  EXPECT_EQ(ui.FileDialogs.back().Filter, "Cross Section Library (*.xsg)|*.xsg|");
}

TEST_F(DeskTest, PutsASelectedBoundaryFileInItsRow) {
  ASSERT_TRUE(desk.OpenProject(WriteProject("one.prj", "one.hnp")));
  ui.Answers = {Answer::Ok};
  desk.SelectExisting(kBoundarySlotH);
  EXPECT_EQ(ui.LastMessage(),
            "You must initially specify BCF and MET files using the HNP and/or QNP editors.");
  view.Shown.Lists[kBoundarySlotH] = {{"a (old).bcf     (US Branch 2)", "b.bcf     (DS Branch 4)"},
                                      0};
  view.Shown.Lists[kMetSlot] = {{"a (x86).met"}, 0};
  ui.Files = {{"new.bcf"}, {"new.met"}};
  desk.SelectExisting(kBoundarySlotH);
  desk.SelectExisting(kMetSlot);
  EXPECT_THAT(view.Shown.Lists[kBoundarySlotH].Rows,
              ElementsAre("new.bcf     (US Branch 2)", "b.bcf     (DS Branch 4)"));
  EXPECT_EQ(project.BCFilesH[2].Upstream, "new.bcf");
  EXPECT_EQ(project.BCCountH, 4);
  EXPECT_EQ(project.MetFiles[1], "new.met");
}

TEST_F(DeskTest, LooksAtAFileThatASlotHasGot) {
  std::filesystem::copy(LOMARIS_EXAMPLES "/three_branches", folder.Path("."));
  const std::string head = "1\r\n2\r\n3\r\n";
  folder.Write("far.lat", head + "1 1 0 0\r\n501\r\n");
  folder.Write("broken.wit", head + "1 some 0\r\n");
  folder.Write("new.pow", "");
  constexpr std::size_t kLatSlot = 2, kWitSlot = 3, kPowSlot = 7;
  const std::tuple<std::size_t, const char*, const char*> rows[] = {
      {kLatSlot, "corvane_loads.lat", ""},
      {kBoundarySlotH, "corvane_gage.bcf", ""},
      {kMetSlot, "corvane_weather.met", ""},
      {kPowSlot, "new.pow", ""},
      {kLatSlot, "far.lat",
       "Node number 501 was found in this auxiliary file. This is outside the range of node "
       "numbers found in the HNP file (1 to 41)."},
      {kWitSlot, "broken.wit", "Following error occurred on line 5 of file "},
      {kBoundarySlotQ, "corvane_gage.bcf",
       "The Hydro file indicates that this is not a rating table boundary, however"}};
  ASSERT_TRUE(desk.OpenProject(folder.Path("three_branches.prj")));
  ui.Answers = {Answer::Cancel};
  desk.SelectExisting(kLatSlot);  // warns, once
  for (const auto& [slot, name, message] : rows) {
    ui.Messages.clear();
    ui.Files = {{folder.Path(name)}};
    desk.SelectExisting(slot);
    ASSERT_EQ(ui.Messages.size(), *message == '\0' ? 0u : 1u) << name;
    if (*message != '\0') {
      EXPECT_THAT(ui.LastMessage(), StartsWith(message));
    }
  }
  EXPECT_EQ(project.LatFileH, folder.Path("far.lat")) << "the choice is the user's";
  EXPECT_EQ(project.BCFilesQ[2].Upstream, folder.Path("corvane_gage.bcf"));
  EXPECT_FALSE(hydro.HydroLoaded) << "the network is read aside";
}

TEST_F(DeskTest, FindsTheOutputBesideTheInput) {
  ASSERT_TRUE(desk.OpenProject(WriteProject("one.prj", "hnp_runs\\one.hnp")));
  desk.OpenOutputFile(1);
  EXPECT_EQ(ui.LastMessage(), "Unable to find output file named out_RUNS\\ONE.out");
  EXPECT_EQ(ui.Messages.back().BoxIcon, Icon::Critical);
  const std::string output = folder.Write("out_runs/one.out", "");
  desk.OpenOutputFile(1);
  ASSERT_EQ(shell.Opened.size(), 1u);
  EXPECT_THAT(shell.Opened[0], testing::EndsWith("out_runs/one.out"));
}

}  // namespace
}  // namespace lomaris

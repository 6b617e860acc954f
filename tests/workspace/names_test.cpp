// Recent projects, global replace, and what FileEdit makes of a name.

#include <gmock/gmock.h>

#include "desk_fixture.h"
#include "workspace/file_edit.h"
#include "workspace/global_replace.h"

namespace lomaris {
namespace {

using testing::ElementsAre;

TEST(RecentFiles, KeepsEightWithTheLatestFirst) {
  RecentFiles recent;
  for (int i = 1; i <= 9; ++i) recent.AddToMRU("p" + std::to_string(i) + ".prj");
  EXPECT_THAT(recent.Names(), ElementsAre("p9.prj", "p8.prj", "p7.prj", "p6.prj", "p5.prj",
                                          "p4.prj", "p3.prj", "p2.prj"));
  recent.AddToMRU("P4.PRJ");
  EXPECT_EQ(recent.Names().size(), 8u);
  EXPECT_EQ(recent.Names()[0], "p4.prj");
  EXPECT_EQ(recent.Names()[1], "p9.prj");
}

TEST(RecentFiles, ReadsBackItsOrderWithoutDeadNames) {
  const TempFolder folder;
  FakeSettings settings;
  RecentFiles recent;
  for (const char* name : {"c.prj", "b.prj", "a.prj"}) recent.AddToMRU(folder.Path(name));
  recent.SaveMRU(settings);
  folder.Write("a.prj", "");
  folder.Write("c.prj", "");
  RecentFiles next;
  next.LoadMRU(settings);
  EXPECT_THAT(next.Names(), ElementsAre(folder.Path("a.prj"), folder.Path("c.prj")));
}

TEST(GlobalReplace, ReplacesTheFirstPlaceOnlyInAnyCase) {
  struct Case {
    const char* Text;
    const char* From;
    const char* To;
    const char* Result;
  };
  const Case cases[] = {{"C:\\OLD\\a.hnp", "c:\\old", "D:\\new", "D:\\new\\a.hnp"},
                        {"old/old/a.hnp", "OLD", "x", "x/old/a.hnp"},
                        {"C:\\Z\xC3\x9CRICH\\a", "z\xC3\xBCrich", "b", "C:\\b\\a"},
                        {"a.hnp", "q", "x", "a.hnp"}};
  for (const Case& c : cases) EXPECT_EQ(ReplaceFirst(c.Text, c.From, c.To), c.Result) << c.Text;
}

TEST(GlobalReplace, LeavesWeatherAndOtherFilesAndEmptySlots) {
  ScriptedUi ui;
  ui.Texts = {"old", "new"};
  ProjectData project;
  project.FileName = "old/p.prj";
  project.HydroFile = "old/a.hnp";
  project.WitFileH = std::string(kNotSpecified);
  project.BCFilesH[1].Upstream = "Old/u.bcf";
  project.BCFilesQ[20].Downstream = "OLD/d.bcf";
  project.MetFiles[1] = "old/m.met";
  project.OtherFiles[1] = "old/o.txt";
  ProjectData expected = project;
  expected.FileName = "new/p.prj";
  expected.HydroFile = "new/a.hnp";
  expected.BCFilesH[1].Upstream = "new/u.bcf";
  expected.BCFilesQ[20].Downstream = "new/d.bcf";

  EXPECT_TRUE(GlobalReplace(project, ui, [] { return true; }));
  EXPECT_EQ(project, expected);
  EXPECT_EQ(ui.InputBoxes[1].Prompt,
            "Now enter the replacement string for 'old' (for example: C:\\NEWDIR\\): ");

  ui.Texts = {"new", ""};
  EXPECT_FALSE(GlobalReplace(project, ui, [] { return true; }));
  EXPECT_EQ(project, expected);
}

TEST(FileEdit, CutsRemarksAndNeedsTheNetworkForFilesTiedToIt) {
  const TempFolder folder;
  ScriptedUi ui;
  HydroInput hydro;
  ProjectData project;
  FakeWorkbench windows;
  project.HydroFile = "river.hnp";
  const auto prepare = [&](const EditRequest& request) {
    return PrepareFileEdit(request, hydro, project, ui, windows);
  };
  EXPECT_EQ(prepare({.FileName = "  "}), std::nullopt);
  EXPECT_EQ(prepare({.FileName = "a.xsg (old)"}),
            (EditRequest{.FileName = "a.xsg", .Kind = "XSG"}));
  EXPECT_TRUE(ui.Messages.empty());
  for (const char* kind : {"QNP", "LAT", "WIT", "POW", "MET", "BCF", "BMD"}) {
    EXPECT_EQ(prepare({.Kind = kind}), std::nullopt) << kind;
    EXPECT_EQ(ui.LastMessage(),
              "Unable to load hydrodynamic file named \"river.hnp\". You cannot edit auxiliary "
              "files without specifying a valid HNP file in the project editor.");
  }
  folder.Write("river.hnp", "");
  EXPECT_TRUE(prepare({.FileName = "a.lat"}).has_value());
  EXPECT_EQ(hydro.FileName, "river.hnp");

  project.HydroFile = folder.Write("other.hnp", "");
  windows.LetRelease = false;
  ui.Messages.clear();
  EXPECT_FALSE(prepare({.FileName = "a.lat"}).has_value());
  EXPECT_TRUE(ui.Messages.empty() && hydro.FileName == "river.hnp") << "an editor keeps it";
  windows.LetRelease = true;
  EXPECT_TRUE(prepare({.FileName = "a.lat"}).has_value() && hydro.FileName == project.HydroFile);
}

}  // namespace
}  // namespace lomaris

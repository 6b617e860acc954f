#include "editors/hydro_desk.h"

#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text.h"
#include "editors/editor_fixture.h"
#include "editors/lookup_names.h"
#include "editors/xsect_sheet.h"
#include "spreadsheet/sheet_queries.h"

namespace lomaris {
namespace {

using testing::EndsWith, testing::HasSubstr, testing::StartsWith;

class FakeHydroView : public HydroView {
 public:
  HydroForm Fields;
  BranchForm End;
  std::vector<std::string> Names;
  int Selected = -2;
  std::string Title;

  HydroForm Form() const override { return Fields; }
  void ShowForm(const HydroForm& form) override { Fields = form; }
  BranchForm Branch() const override { return End; }
  void ShowBranch(const BranchForm& form) override { End = form; }
  void ShowBranchList(const std::vector<std::string>& names, int selected) override {
    Names = names;
    Selected = selected;
  }
  void SetCaption(const std::string& caption) override { Title = caption; }
};

constexpr const char* kName = "corvane_river.hnp";

/// The hydrodynamic editor without a window, with the example open in it.
class HydroDeskTest : public EditorTest {
 protected:
  void SetUp() override { ASSERT_TRUE(desk.Open(kName)); }

  void Reopen() {
    hydro.Dirty = false;
    ui.Messages.clear();
    ASSERT_TRUE(desk.Open(kName));
  }

  FakeHydroView view;
  HydroDesk desk{around, view};
};

TEST_F(HydroDeskTest, UneditedIsSavedAsItWasReadWithTheRatingCurveCrosswise) {
  EXPECT_EQ(view.Title, "Hydrodynamic Input - corvane_river.hnp");
  EXPECT_EQ(view.Fields.SimPeriod, "04/01/25 00:00 to 11/01/25 00:00");
  for (const int branch : {2, 0, 1}) EXPECT_TRUE(desk.SelectBranch(branch));
  EXPECT_EQ(view.End.DSAngle + " " + view.End.DSValue, "0.1005 0.537");
  EXPECT_TRUE(desk.UnknownLookups().empty());
  EXPECT_TRUE(desk.Save(false) && ui.Messages.empty() && !project.Dirty);
  EXPECT_EQ(folder.Read(kName), Example(kName));
  view.End.DSAngle = "0.2";
  EXPECT_TRUE(desk.StoreBranch());
  EXPECT_TRUE(hydro.Branches[2].DSValue == 0.2F && hydro.Branches[2].DSAngle == 0.537F);
}

TEST_F(HydroDeskTest, GridsHaveTheirColumnsAndRows) {
  EXPECT_EQ(desk.TimeSteps().Rows(), 4);
  EXPECT_EQ(desk.XSects().Rows(), 21);
  EXPECT_EQ(desk.Results().TextMatrix(0, 1) + "|" + desk.Results().TextMatrix(0, 2),
            "Starting\nDate/Time|Interval\n(hours)");
  EXPECT_EQ(ClipText(desk.Results(), {1, 1, 2, 2}), "04/01/25 00:00\t24\r\n07/01/25 00:00\t6");
  Sheet& sheet = desk.XSects();
  std::string formats;
  for (int col = 1; col < sheet.Cols(); ++col) {
    formats +=
        ReplaceAll(sheet.TextMatrix(0, col), "\n", "|") + "=" + sheet.FormatOf(1, col).List + " ";
  }
  EXPECT_THAT(formats, StartsWith("Cross Section Name= Print?=Yes;No XSG Lookup|Name= Downstream|"
                                  "Dist. (ft)=0.0001;999999 Initial Flow|(cfs)=0.0001;999999 "
                                  "Initial Depth|(ft)=0.0001;999999 Dist. Inflow|(cfs)=0;999999 "
                                  "Invert Elev.|(ft msl)=-100;9999 Mannings n|Downstream=0.01;1 "
                                  "Energy Loss|Coef DS=0;999999 "));
  EXPECT_EQ(ClipText(sheet, {1, 1, 1, 15}),
            "CR 19.88\tYes\tCR-RUN1\t1850\t247.7\t2.07\t1\t644.63\t0.036\t0.1\t0.037\t0.0005\t5.59"
            "\t43.49\t1.23");

  // An empty row stands ready.
  const int rows = sheet.Rows();
  EXPECT_TRUE(sheet.EndEdit(rows - 1, kXSectNameCol, "CR 9") && sheet.Rows() == rows + 1);
  EXPECT_TRUE(sheet.Undo() && sheet.Rows() == rows && ui.Messages.empty());
  EXPECT_TRUE(sheet.Redo() && sheet.Rows() == rows + 1);
  EXPECT_EQ(sheet.TextMatrix(rows, 0), std::to_string(rows));
}

TEST_F(HydroDeskTest, WhatIsWrongInAGridStopsTheSave) {
  Sheet &times = desk.TimeSteps(), &prints = desk.Results(), &xsects = desk.XSects();
  const std::tuple<Sheet&, int, int, const char*, const char*> rows[] = {
      {times, 2, 1, "4/1/2025",
       "The computational time step starting date/time value in row 2 is not larger than the "
       "previous one."},
      {times, 1, 1, "4/2/2025 6:30",
       "The first computational time step starting date/time value (04/02/25 06:30) is greater "
       "than the simulation starting time (04/01/25 00:00)."},
      {prints, 1, 1, "4/2/2025",
       "The first print time step starting date/time value (04/02/25 00:00) is greater than the "
       "simulation starting time (04/01/25 00:00)."},
      {times, 0, 0, "", "You must enter one or more computational time step values."},
      {prints, 0, 0, "", "You must enter one or more print time step values."},
      {times, 2, 1, "soon", "Invalid date/time entered: soon"},
      {times, 3, 2, "5", "Invalid date/time entered: "},
      {times, 2, 2, "", "Invalid number entered (computational time step in row 2): ?"},
      {xsects, 2, 1, "A cross\u00E9section",
       "Invalid cross section name: A cross\u00E9section; the length should be between 1 and 12 "
       "characters."},
      {xsects, 2, 1, " ",
       "Invalid cross section name: ; the length should be between 1 and 12 characters."},
      {xsects, 2, 3, "NINE-LONG",
       "Invalid lookup name: NINE-LONG; the length must be between 1 and 8 characters."},
      {xsects, 2, 8, "1x", "Invalid number entered (CR 19.53, Invert Elev. (ft msl)): 1x"}};
  for (const auto& [sheet, row, col, text, message] : rows) {
    Reopen();
    if (row == 0) sheet.SetRows(1);
    sheet.SetTextMatrix(row, col, text);
    const HydroInput before = hydro;
    EXPECT_FALSE(desk.Save(false)) << message;
    EXPECT_EQ(ui.LastMessage(), message);
    EXPECT_EQ(ui.Messages.size(), 1u) << message;
    EXPECT_EQ(ui.Messages.back().Title, "Error");
    EXPECT_TRUE(hydro == before) << message;
  }
  EXPECT_EQ(folder.Read(kName), Example(kName));
}

TEST_F(HydroDeskTest, RowEventsAskAndRefuse) {
  EXPECT_TRUE(desk.TimeSteps().DeleteLines(Axis::Rows, 3, 1) && ui.Messages.empty());
  EXPECT_FALSE(desk.TimeSteps().DeleteLines(Axis::Rows, 2, 2));
  EXPECT_EQ(ui.LastMessage(), "You must have at least two time step entries.");
  EXPECT_FALSE(desk.Results().DeleteLines(Axis::Rows, 1, 2));
  EXPECT_EQ(ui.LastMessage(), "You must have at least two print step entries.");

  ui.Answers = {Answer::No, Answer::Yes};
  EXPECT_FALSE(desk.XSects().InsertLines(Axis::Rows, 3, 1));
  EXPECT_THAT(ui.LastMessage(), StartsWith("When you insert cross sections, Auxiliary files"));
  EXPECT_THAT(ui.LastMessage(), EndsWith("\r\n\r\nDo you want to continue?"));
  EXPECT_TRUE(desk.XSects().DeleteLines(Axis::Rows, 3, 1));
  EXPECT_THAT(ui.LastMessage(), HasSubstr("Do not delete AND rename referenced"));
  // Branch 2 flows into cross section 1, which is where it was; branch 3 into the tenth.
  EXPECT_TRUE(desk.SelectBranch(2));
  EXPECT_EQ(ui.LastMessage(),
            "You inserted or deleted some rows in this branch, but the branch called \"Quillet "
            "Creek\" discharges into it. Because the downstream cross section number may have "
            "changed it has been reset to 0; please reselect the downstream cross section number "
            "for this other branch.");
  EXPECT_EQ(hydro.Branches[1].XSectCount, 18);
  EXPECT_EQ(hydro.Branches[2].DSXSect, 1);
  EXPECT_EQ(view.End.XSectName, -1);
  EXPECT_TRUE(desk.StoreBranch() && hydro.Branches[3].DSXSect == 0 && hydro.Dirty);
}

TEST_F(HydroDeskTest, DownstreamEndIsChosen) {
  EXPECT_TRUE(!view.End.XSectNameVisible && view.End.CanEditDSValue);
  EXPECT_TRUE(desk.SelectBranch(2));
  EXPECT_THAT(view.End.DSBranches,
              testing::ElementsAre("(None: this is downstream-most branch in system.)",
                                   "Corvane River", "Ashlar Fork"));
  EXPECT_EQ(view.End.XSectName, 9);
  EXPECT_TRUE(view.End.DSBranch == 1 && view.End.DSType == 1 && !view.End.CanEditDSValue);
  for (const int entry : {2, 0}) {
    view.End.DSBranch = entry;
    desk.ChooseDSBranch();
    EXPECT_EQ(view.End.XSectNames.size(), entry == 2 ? 11u : 0u);
    EXPECT_EQ(ui.Messages.size(), 1u);  // once, whatever is chosen afterwards
  }
  EXPECT_THAT(ui.LastMessage(), EndsWith("This message will not be repeated."));
  view.End.DSType = kDSFlow;
  desk.ChooseDSType();
  EXPECT_THAT(ui.LastMessage(), EndsWith("not equal to the outflow; use this option with care."));
  EXPECT_EQ(ui.Messages.back().BoxIcon, Icon::Information);

  view.End.DSType = kDSRatingCurve;
  view.End.DSAngle = "0";
  view.End.USFile = "(internal)";
  EXPECT_TRUE(!desk.OffersBoundary(BoundaryAction::Open, false) && desk.Save(false));
  EXPECT_EQ(ui.LastMessage(),
            "For branch 'Quillet Creek' you indicated that a rating curve is to be used as the "
            "downstream boundary condition, however, the coefficient a was set to a number less "
            "than or equal to zero. Please edit this value or Vesk will have an invalid downstream "
            "boundary condition.");
  EXPECT_EQ(ui.Messages.size(), 3u);
  const BranchRec& stored = hydro.Branches[3];
  EXPECT_TRUE(stored.DSBranch == 0 && stored.DSXSect == 0 && stored.DSType == 'R');
  EXPECT_EQ(stored.USFile, "");
}

TEST_F(HydroDeskTest, FieldsAreCheckedAsTheyAreLeft) {
  view.Fields.EndDate = view.Fields.StartDate;
  EXPECT_FALSE(desk.EndDateLeft());
  EXPECT_EQ(ui.LastMessage(),
            "You must set the ending date of the simulation to be later than the starting date.");
  for (const auto& [year, fits] : {std::pair{"1975", true}, {"1974", false}}) {
    view.Fields.SeedYear = year;
    EXPECT_EQ(desk.SeedYearLeft(), fits) << year;
  }
  EXPECT_EQ(ui.LastMessage(),
            "You must set the seed year to be no more than 50 years before the ending date of the "
            "simulation.");
  for (const auto& [typed, shown] :
       {std::pair{" 007.50", "7.5"}, {"-1.0", "-1.0"}, {"x", "x"}, {"1e3", "1000"}}) {
    view.End.USValue = view.End.DSValue = typed;
    desk.ConstantLeft();
    EXPECT_EQ(view.End.USValue + view.End.DSValue, std::string(shown) + shown);
  }
  desk.DatesChanged();
  EXPECT_EQ(view.Fields.SimPeriod, "04/01/25 00:00 to 04/01/25 00:00");
  view.Fields.Theta = "half";
  EXPECT_FALSE(desk.Save(false));
  EXPECT_EQ(ui.LastMessage(), "Invalid number entered (Theta): half");
}

TEST_F(HydroDeskTest, BranchesAreAddedRenamedAndLeaveTheListAlone) {
  ui.Answers = {Answer::Cancel, Answer::Ok, Answer::Ok};
  ui.Texts = {"", "Mill Race", "Mill Leat"};
  for (int i = 0; i < 3; ++i) desk.AddBranch();
  EXPECT_EQ(hydro.BranchCount * 100 + project.BCCountH * 10 + project.BCCountQ, 441);
  EXPECT_EQ(qual.Branches[qual.BranchCount].Name, "Mill Race");
  EXPECT_TRUE(hydro.Dirty && project.Dirty && view.Selected == 3 && desk.XSects().Rows() == 2);
  desk.RenameBranch();
  EXPECT_EQ(view.Names.back() + hydro.Branches[4].Name, "Mill LeatMill Leat");

  ui.Answers.assign(4, Answer::Ok);
  const std::pair<int, std::size_t> steps[] = {{2, 3}, {1, 2}, {0, 1}, {-1, 0}};
  for (const auto& [selected, left] : steps) {
    desk.DeleteBranch();
    EXPECT_EQ(view.Selected, selected);
    EXPECT_EQ(view.Names.size(), left);
  }
  EXPECT_TRUE(desk.Save(false) && hydro.BranchCount == 4);
  EXPECT_THAT(folder.Read(kName), HasSubstr(" 4 \r\nMill Leat\r\n"));
}

TEST_F(HydroDeskTest, SavesUnderANameAndAsksBeforeItCloses) {
  ui.Files = {{}, {folder.Path("b.hnp")}};
  EXPECT_FALSE(desk.Save(true));
  EXPECT_TRUE(desk.Save(true) && project.Dirty && folder.Read("b.hnp") == Example(kName));
  EXPECT_EQ(ui.FileDialogs.back().Title + ui.FileDialogs.back().FileName, "Save As*.hnp");
  EXPECT_EQ(view.Title, "Hydrodynamic Input - " + folder.Path("b.hnp"));
  EXPECT_EQ(project.HydroFile, folder.Path("b.hnp"));

  const HydroInput saved = hydro;
  EXPECT_TRUE(desk.QueryUnload());
  EXPECT_TRUE(desk.XSects().EndEdit(1, kLookupCol, "GONE"));
  EXPECT_THAT(desk.UnknownLookups(), testing::ElementsAre(1));
  EXPECT_TRUE(hydro.Dirty && desk.StoreBranch());
  ui.Answers = {Answer::Cancel, Answer::No};
  EXPECT_FALSE(desk.QueryUnload());
  EXPECT_EQ(ui.LastMessage(), "Save changes to Hydrodynamic input file?");
  EXPECT_TRUE(desk.QueryUnload() && hydro == saved);

  hydro.FileName = "read_meanwhile.hnp";
  ui.Answers = {Answer::Abort};
  EXPECT_FALSE(desk.Save(false) || folder.Holds("read_meanwhile.hnp"));

  project.XSGFileH = "gone.xsg";
  folder.Write("gone.xsg", "1\r\n2\r\n3\r\n 1 \r\n\r\n");
  EXPECT_TRUE(desk.Open("new.hnp") && hydro.BranchCount == 0 && view.Selected == -1);
  EXPECT_EQ(ui.LastMessage(), "Cannot load Cross section file: gone.xsg");
}

TEST_F(HydroDeskTest, AFileOpenedAsideStaysOutOfTheProject) {
  const std::string names = " 1 \r\n-2\r\nup.bcf\r\nin.lat\r\nNULL\r\nother.xsg\r\n";
  const std::string content = Example(kName);
  const std::string twin =
      folder.Write("twin.hnp", content.substr(0, content.rfind(" 3 \r\n")) + names);
  const ProjectData before = project;
  EXPECT_TRUE(desk.Open(twin, true) && desk.Save(false));
  EXPECT_THAT(folder.Read("twin.hnp"), EndsWith(names)) << "its own names, not the project's";
  EXPECT_TRUE(desk.Open(twin, true) && !desk.EditsNetwork());
  EXPECT_TRUE(desk.XSects().EndEdit(1, kLookupCol, "AF-RUN") && desk.Save(false));
  EXPECT_TRUE(project == before && hydro.FileName == kName && !hydro.Dirty);
  EXPECT_THAT(folder.Read("twin.hnp"), HasSubstr("\r\nAF-RUN"));
  ui.Files = {{folder.Path(kName)}};
  hydro.Dirty = true;  // look-ups were renamed, and are given up
  ui.Answers = {Answer::No};
  EXPECT_TRUE(desk.Save(true) && project == before);
  EXPECT_TRUE(hydro.HydroLoaded && hydro.Branches[1].XSects[1].Lookup == "AF-RUN")
      << "the file it was read from is another one now";
  EXPECT_TRUE(desk.Open(kName) && desk.EditsNetwork() && hydro.HydroLoaded);
}

TEST_F(HydroDeskTest, WhatIsGivenUpLeavesTheProjectToo) {
  const ProjectData before = project;
  view.End.USFile = "b.bcf";
  desk.Edited();
  EXPECT_TRUE(desk.SelectBranch(1) && desk.SelectBranch(0));
  EXPECT_EQ(project.BCFilesH[1].Upstream, "b.bcf");
  ui.Answers = {Answer::Ok, Answer::No};
  ui.Texts = {"Mill Race"};
  qual.BranchCount = 3;
  desk.AddBranch();
  EXPECT_TRUE(desk.QueryUnload() && qual.BranchCount == 3);
  EXPECT_TRUE(project.BCCountH == 3 && project.BCCountQ == 0 && project.Dirty)
      << "it may have been saved with the name";
  EXPECT_EQ(project.BCFilesH[1], before.BCFilesH[1]);
}

TEST_F(HydroDeskTest, ASaveOnTheWayLeavesTheProjectsChoiceAlone) {
  view.Fields.LatFile = "old.lat";
  desk.Edited();
  project.HydroFile = folder.Write("other.hnp", Example(kName));
  project.LatFileH = "new.lat";
  project.WitFileH = "new.wit";
  ui.Answers = {Answer::Yes};
  EXPECT_TRUE(desk.Open("other.hnp"));
  EXPECT_THAT(folder.Read(kName), HasSubstr("\r\nold.lat\r\nnew.wit\r\n"))
      << "what was not chosen in the editor follows the project";
  EXPECT_EQ(project.LatFileH + hydro.LatFile, "new.latnew.lat");

  folder.Write("other.hnp", "changed by another program");
  ui.Answers = {Answer::No};
  EXPECT_FALSE(desk.Save(false));
  EXPECT_THAT(ui.LastMessage(), StartsWith("File other.hnp has been changed since it was opened"));
  EXPECT_EQ(folder.Read("other.hnp"), "changed by another program");
}

TEST_F(HydroDeskTest, AConfluenceIsResetWhereAnotherCrossSectionStands) {
  Sheet& sheet = desk.XSects();  // branch 3 flows into the tenth
  EXPECT_TRUE(sheet.EndEdit(10, kXSectNameCol, "NEW NAME") && desk.StoreBranch());
  EXPECT_EQ(hydro.Branches[3].DSXSect, 10);
  ui.Answers = {Answer::Yes, Answer::Yes};
  EXPECT_TRUE(sheet.DeleteLines(Axis::Rows, 2, 1) && sheet.InsertLines(Axis::Rows, 15, 1));
  EXPECT_TRUE(sheet.EndEdit(15, kXSectNameCol, "CR NEW"));
  sheet.SetTextMatrix(15, kLookupCol, "CR-RUN1");
  sheet.SetTextMatrix(3, kXSectNameCol, "thirteen long");
  EXPECT_FALSE(desk.StoreBranch());
  EXPECT_EQ(hydro.Branches[3].DSXSect, 10) << "a refused store changes nothing";
  sheet.SetTextMatrix(3, kXSectNameCol, "CR X");
  EXPECT_TRUE(desk.StoreBranch());
  EXPECT_EQ(hydro.Branches[3].DSXSect, 0);
}

TEST_F(HydroDeskTest, FollowsTheLibrary) {
  const auto rename = [&](const std::string& from, const std::string& to, bool dirty) {
    EXPECT_EQ(RenameLookups(hydro, from, to).size(), 4u);
    hydro.Dirty = dirty;
    desk.LookupsRenamed(from, to, {});
  };
  rename("CR-RUN1", "CR-NEW", true);
  rename("CR-NEW", "CR-RUN1", false);
  EXPECT_TRUE(desk.QueryUnload()) << "nothing to ask about, now that it is taken back";
  desk.Edited();
  rename("CR-RUN1", "CR-NEW", true);
  EXPECT_TRUE(desk.StoreBranch());
  EXPECT_EQ(desk.XSects().TextMatrix(1, kLookupCol), "CR-NEW");
  EXPECT_TRUE(desk.UnknownLookups().empty() && hydro.Dirty);
  ui.Answers = {Answer::No};
  EXPECT_TRUE(desk.QueryUnload());
  EXPECT_TRUE(hydro.Branches[1].XSects[1].Lookup == "CR-NEW" && hydro.Dirty) << "it still waits";
  folder.Write("corvane_shapes.xsg", "1\r\n2\r\n3\r\n 0 \r\n");
  desk.LibrarySaved(folder.Path("elsewhere.xsg"));
  EXPECT_TRUE(desk.UnknownLookups().empty());
  desk.LibrarySaved(folder.Path("corvane_shapes.xsg"));
  EXPECT_EQ(desk.UnknownLookups().size(), 19u);
  folder.Write("other.hnp", Example(kName));
  ui.Answers = {Answer::No};
  EXPECT_TRUE(desk.Open("other.hnp") && !hydro.Dirty) << "asked once";
}

TEST_F(HydroDeskTest, BoundaryFilesGoToTheProjectAndToTheirEditor) {
  hydro.Branches[2].USFile = folder.Write("up.bcf", "");
  EXPECT_TRUE(!project.Dirty && desk.SelectBranch(1) && project.Dirty);
  EXPECT_EQ(project.BCFilesH[2].Upstream, folder.Path("up.bcf"));
  desk.RunBoundary(BoundaryAction::Edit, true);
  EXPECT_TRUE(workbench.Opened.empty());
  workbench.Editors = {"BCF"};
  view.End.USType = 1;
  desk.RunBoundary(BoundaryAction::Edit, true);
  EXPECT_EQ(workbench.Opened.back(), (EditRequest{folder.Path("up.bcf"), "BCF", 5, 2, true, "H"}));
  ui.Files = {{"other.bcf"}};
  desk.RunBoundary(BoundaryAction::Open, true);
  EXPECT_EQ(view.End.USFile, "other.bcf");
}

TEST_F(HydroDeskTest, SelectsTheFilesOfTheNetworkAndEditsThoseThatHaveAnEditor) {
  workbench.Editors = {"LAT"};
  desk.EditFile(NetworkFile::Lateral);  // names none
  ui.Files = {{folder.Write("in.lat", "")}};
  desk.SelectFile(NetworkFile::Lateral);
  EXPECT_TRUE(hydro.Dirty);
  EXPECT_FALSE(desk.OffersEdit(NetworkFile::Library));
  desk.EditFile(NetworkFile::Lateral);
  const EditRequest expected{.FileName = folder.Path("in.lat"), .Kind = "LAT", .Slot = 2};
  EXPECT_THAT(workbench.Opened, testing::ElementsAre(expected));
}

}  // namespace
}  // namespace lomaris

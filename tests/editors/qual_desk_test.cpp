#include "editors/qual_desk.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/editor_fixture.h"
#include "editors/qual_network.h"
#include "model/qnp_file.h"
#include "spreadsheet/sheet_queries.h"

namespace lomaris {
namespace {

using testing::ElementsAre, testing::HasSubstr, testing::StartsWith;

class FakeQualView : public QualView {
 public:
  QualForm Fields;
  QualBranchForm Ends;
  std::vector<std::string> Names;
  std::vector<int> Progress;
  std::string Title;

  QualForm Form() const override { return Fields; }
  void ShowForm(const QualForm& form) override { Fields = form; }
  QualBranchForm Branch() const override { return Ends; }
  void ShowBranch(const QualBranchForm& form) override { Ends = form; }
  void ShowBranchList(const std::vector<std::string>& names, int) override { Names = names; }
  bool EndEdits() override { return true; }
  void ShowProgress(int percent) override { Progress.push_back(percent); }
  void SetCaption(const std::string& caption) override { Title = caption; }
};

constexpr const char* kName = "corvane_quality.qnp";

/// The water quality editor without a window, over the example's network.
class QualDeskTest : public EditorTest {
 protected:
  QualDeskTest() { LoadQuality(); }

  static int RowOf(const Sheet& sheet, const std::string& name) {
    for (int row = 0; row < sheet.Rows(); ++row) {
      if (sheet.TextMatrix(row, 0) == name) return row;
    }
    return -1;
  }
  /// As a user types it, into the first column of values.
  static bool Type(CoefficientSheet& sheet, const std::string& name, const std::string& text) {
    Sheet& grid = sheet.Grid();
    return grid.EndEdit(RowOf(grid, name), grid.FixedCols(), text);
  }

  FakeQualView view;
  QualDesk desk{around, view};
};

TEST_F(QualDeskTest, UneditedIsSavedAsItWasReadAndEditsInTheirPlace) {
  ASSERT_TRUE(desk.Open(kName));
  EXPECT_EQ(view.Title, "Water Quality Input - corvane_quality.qnp");
  EXPECT_EQ(view.Progress.back(), 100);
  EXPECT_THAT(view.Fields.MetFiles, ElementsAre("corvane_weather.met"));
  for (const int branch : {2, 1, 0}) EXPECT_TRUE(desk.SelectBranch(branch));
  EXPECT_TRUE(desk.ShowByXSect(true) && desk.Filter(desk.BranchKinetics(), "rate"));
  EXPECT_TRUE(desk.Save(false) && ui.Messages.empty() && !project.Dirty);
  EXPECT_EQ(folder.Read(kName), Example(kName));

  ASSERT_TRUE(desk.SelectBranch(1));
  EXPECT_TRUE(Type(desk.GlobalKinetics(), "Time of Sunrise", "4.5"));
  EXPECT_TRUE(desk.Filter(desk.BranchKinetics(), "  settling RATE"));
  EXPECT_EQ(desk.BranchKinetics().Grid().Rows(), 1 + 5);
  EXPECT_TRUE(Type(desk.BranchKinetics(), "CBODu1 Settling Rate", "-0.3"));
  Sheet& initial = desk.InitialCond().Grid();
  EXPECT_TRUE(initial.EndEdit(3, 16, "0.75"));
  EXPECT_TRUE(desk.LateralInflows().Grid().EndEdit(1, 1, "8"));
  EXPECT_TRUE(desk.Plotted().EndEdit(2, 3, "Yes"));
  EXPECT_TRUE(desk.HasChanges() && desk.Save(false) && !desk.HasChanges());
  QualInput again;
  ASSERT_TRUE(LoadQNPFile(again, project, hydro, ui, kName));
  const QualBranchRec& branch = again.Branches[2];
  EXPECT_EQ(again.GlobalKinetics[31], 4.5F);
  EXPECT_EQ(branch.BranchKinetics[30], -0.3F);
  EXPECT_EQ(branch.XSects[3].InitialConc[16], 0.75F);
  EXPECT_EQ(branch.XSects[1].LateralConc[1], 8.0F);
  EXPECT_TRUE(branch.XSects[2].Print);
}

TEST_F(QualDeskTest, GridsFollowTheCatalogueBothWaysRound) {
  ASSERT_TRUE(desk.Open(kName));
  const Sheet& global = desk.GlobalKinetics().Grid();
  EXPECT_EQ(ClipText(global, {0, 0, 2, 5}),
            "Constant Name\tUnits\tTypical\tVariable\tDefault\tValue\r\n"
            "Covar Reaeration Option\t(0=No, 1=Yes)\t0 or 1\tICOVAR\t1\t1\r\n"
            "DO Saturation Equation Option\t(0=APHA, 1=ASCE)\t0 or 1\tNDOSAT\t0\t0");
  EXPECT_EQ(global.FormatOf(1, 5).List + "|" + global.FormatOf(7, 5).List, "0;1|0;99999");
  Sheet& xsects = desk.XSectKinetics().Grid();
  EXPECT_EQ(ClipText(xsects, {1, 0, 2, 6}),
            "Reaeration Formula\t\t\t\t\tCovar, Wind\tCovar, Wind\r\n"
            "Constant Dispersion Rate\tft\u00B2/sec\t\tDISPC\t0\t90\t60");
  EXPECT_FALSE(xsects.EndEdit(1, 5, "Fixed"));
  ASSERT_TRUE(xsects.EndEdit(2, 6, "61") && desk.ShowByXSect(true));
  EXPECT_EQ(xsects.TextMatrix(0, 0),
            "Constant Name ->\n\n\nUnits ->\nTypical ->\nVariable ->\n"
            "Default ->");
  EXPECT_EQ(xsects.TextMatrix(0, 2), "Constant\nDispersion Rate\n\nft\u00B2/sec\n\nDISPC\n0");
  EXPECT_EQ(ClipText(xsects, {2, 0, 2, 2}), "CR 19.53\tCovar, Wind\t61");
  xsects.SelectArea({2, 5, 2, 5});
  EXPECT_TRUE(desk.ShowByXSect(false) && desk.Filter(desk.XSectKinetics(), "o'connor"));
  EXPECT_EQ(ClipText(xsects, xsects.SelectedArea()), "0");
  EXPECT_TRUE(xsects.Selected().Row == 2 && xsects.Selected().Col == 6) << "the same coefficient";
  const Sheet& initial = desk.InitialCond().Grid();
  EXPECT_EQ(initial.TextMatrix(0, 1), "Temp\n\u00B0C");
  EXPECT_EQ(ClipText(initial, {1, 0, 1, 2}), "CR 19.88\t5.7\t1.8");
}

TEST_F(QualDeskTest, ReaerationFormulaFollowsAllThreeGridsAndTheLastTestWins) {
  ASSERT_TRUE(desk.Open(kName));
  Sheet& grid = desk.XSectKinetics().Grid();
  const auto formula = [&] { return grid.TextMatrix(1, 5); };
  EXPECT_TRUE(Type(desk.BranchKinetics(), "Wind Driven Reaeration Option", "0"));
  EXPECT_EQ(formula(), "Covar");
  EXPECT_TRUE(Type(desk.XSectKinetics(), "O'Connor - Dobbins Equation Coefficient", "12.9"));
  EXPECT_EQ(formula(), "O-D");
  EXPECT_TRUE(Type(desk.XSectKinetics(), "Constant Reaeration Rate", "2"));
  EXPECT_EQ(formula(), "Fixed");
  EXPECT_TRUE(grid.Undo());
  EXPECT_EQ(formula(), "O-D");
  EXPECT_TRUE(Type(desk.XSectKinetics(), "O'Connor - Dobbins Equation Coefficient", "0"));
  EXPECT_EQ(formula(), "Covar");
  EXPECT_TRUE(Type(desk.XSectKinetics(), "Tsivoglou - Wallace Escape Coefficient", "0.05"));
  EXPECT_EQ(formula(), "T-W");
  EXPECT_TRUE(Type(desk.XSectKinetics(), "Tsivoglou - Wallace Escape Coefficient", " "));
  EXPECT_TRUE(Type(desk.GlobalKinetics(), "Covar Reaeration Option", "0"));
  EXPECT_EQ(formula(), "None");
  EXPECT_TRUE(grid.Undo());
  EXPECT_EQ(formula(), "T-W") << "an edit of another grid left this one's history alone";
  while (grid.Undo()) {
  }
  EXPECT_EQ(formula(), "None") << "not what it was before that edit";
}

TEST_F(QualDeskTest, AnUntypicalValueIsRemarkedOnAndTheDefaultIsNot) {
  struct Case {
    const char* Typical;
    float Value;
    bool Holds;
  };
  for (const auto& [typical, value, holds] : {Case{"0.5 - 2", 0.5F, true},
                                              {"0.5 - 2", 2.01F, false},
                                              {"-0.36 - 0.36", -0.4F, false},
                                              {"-0.36 - 0.36", -0.3F, true},
                                              {"0 TO 1", 1.1F, false},
                                              {"0 or 1", 0.5F, false}}) {
    EXPECT_EQ(TypicalRangeOf(typical)->Holds(value), holds) << typical << " " << value;
  }
  EXPECT_TRUE(!TypicalRangeOf("1.047") && !TypicalRangeOf("") && !TypicalRangeOf("12.9 - "));

  ASSERT_TRUE(desk.Open(kName));
  CoefficientSheet& sheet = desk.XSectKinetics();
  Sheet& grid = sheet.Grid();
  const int row = RowOf(grid, "Canopy Shading");
  EXPECT_TRUE(Type(sheet, "Canopy Shading", "1.5"));
  EXPECT_EQ(sheet.Remark(row, 5), "The value is outside the typical range of 0 to 1.");
  EXPECT_EQ(sheet.Description(row, 5),
            "Canopy Shading (CANOPY), fraction; typical 0 to 1; default 0");
  const int decay = RowOf(grid, "CBODu2 Decay Rate");
  grid.SelectArea({decay, 5, row, 6});
  desk.ResetToDefaults(sheet);
  EXPECT_EQ(ClipText(grid, {row, 5, row, 6}), "0\t0");
  EXPECT_EQ(sheet.Remark(decay, 5) + sheet.Remark(row, 5) + sheet.Remark(1, 5), "");
  EXPECT_TRUE(grid.Undo());
  EXPECT_EQ(grid.TextMatrix(row, 5), "1.5");
  grid.SetTextMatrix(row, 5, "much");  // as it can be pasted
  EXPECT_FALSE(desk.SelectBranch(1));
  EXPECT_EQ(ui.LastMessage(), "Invalid number entered (Canopy Shading, CR 19.88): much");
}

TEST_F(QualDeskTest, ANewInputIsBuiltFromTheNetworkAndNotForTheProject) {
  const ProjectData before = project;
  ASSERT_TRUE(desk.Open("QNP", true));
  EXPECT_EQ(view.Title, "Water Quality Input - QNP");
  EXPECT_EQ(view.Fields.Description, "Created using corvane_river.hnp; " + hydro.Title);
  EXPECT_TRUE(desk.FileName().empty() && desk.HasChanges());
  EXPECT_EQ(desk.PrintSteps().TextMatrix(2, 2), "6");
  const Sheet& kinetics = desk.BranchKinetics().Grid();
  EXPECT_EQ(ClipText(kinetics, {5, 3, 5, 5}), "TSINK\t25\t25");
  ui.Files = {{folder.Path("built.qnp")}};
  ui.Answers = {Answer::Yes};
  EXPECT_TRUE(desk.QueryUnload());
  EXPECT_EQ(project, before);
  QualInput built;
  EXPECT_TRUE(LoadQNPFile(built, project, hydro, ui, "built.qnp"));
  EXPECT_TRUE(FitsNetwork(built, hydro) && HasNetworkNames(built, hydro));
  EXPECT_TRUE(built.Branches[1].XSects[1].Print && built.Branches[2].BranchKinetics[16] == 25);
  ASSERT_TRUE(desk.Open("QNP", true));
  ui.Files = {{"a.met"}, {folder.Path(kName)}};
  desk.RunMet(MetAction::Add);
  EXPECT_TRUE(desk.Save(false));
  EXPECT_EQ(project.MetFiles[2] + project.QualFile, std::string("a.met") + kName)
      << "as the project's own file it is the project's";
}

TEST_F(QualDeskTest, BoundaryFieldsSayWhyThereIsNoFile) {
  hydro.Branches[2].DSXSect = 1;
  hydro.Branches[2].DSBranch = 1;
  ASSERT_TRUE(desk.Open(kName));
  EXPECT_EQ(view.Ends.USFile, "(BCF file not used: connects as internal boundary condition to '" +
                                  hydro.Branches[2].Name + "')");
  EXPECT_EQ(view.Ends.DSFile, "(Please specify boundary condition file)");
  EXPECT_TRUE(!view.Ends.NeedsUSFile && view.Ends.NeedsDSFile);
  ASSERT_TRUE(desk.SelectBranch(1));
  EXPECT_EQ(view.Ends.USFile, "ashlar_dam.bcf");
  EXPECT_EQ(view.Ends.DSFile, "(BCF file not used: this is NOT downstream-most branch in system.)");
  desk.RunBoundary(QualBoundary::None, true);
  EXPECT_EQ(view.Ends.USFile, "(None Selected)");
  ui.Files = {{"spring.bcf"}};
  ASSERT_TRUE(desk.SelectBranch(0));
  desk.RunBoundary(QualBoundary::Open, true);  // not offered
  desk.RunBoundary(QualBoundary::Open, false);
  EXPECT_TRUE(desk.Save(false));
  EXPECT_EQ(project.BCFilesQ[2].Upstream, "");
  EXPECT_EQ(project.BCFilesQ[1].Upstream, "");
  EXPECT_EQ(project.BCFilesQ[1].Downstream, "spring.bcf");
  EXPECT_TRUE(project.Dirty);
  view.Ends.DSFile = "(Please specify boundary condition file)";  // as it was shown at first
  EXPECT_TRUE(desk.Save(false));
  EXPECT_EQ(project.BCFilesQ[1].Downstream, "");
}

TEST_F(QualDeskTest, WeatherFilesAreReplacedAddedAndRemoved) {
  ASSERT_TRUE(desk.Open(kName));
  EXPECT_FALSE(desk.OffersMet(MetAction::Edit) || desk.OffersMet(MetAction::New));
  ui.Files = {{"a.met"}, {"b.met"}, {}};
  desk.RunMet(MetAction::Add);
  desk.RunMet(MetAction::Add);
  desk.RunMet(MetAction::Add);
  EXPECT_THAT(view.Fields.MetFiles, ElementsAre("corvane_weather.met", "a.met", "b.met"));
  EXPECT_EQ(view.Fields.MetFile, 2);
  EXPECT_EQ(ui.FileDialogs.front().Title, "Open");
  view.Fields.MetFile = 0;
  desk.RunMet(MetAction::Remove);
  ui.Files = {{"c.met"}};
  desk.RunMet(MetAction::Replace);
  EXPECT_THAT(view.Fields.MetFiles, ElementsAre("c.met", "b.met"));
  EXPECT_TRUE(desk.HasChanges() && desk.Save(false));
  EXPECT_EQ(project.MetCount, 2);
  EXPECT_EQ(project.MetFiles[2] + project.MetFiles[3], "b.met");

  desk.RunMet(MetAction::Remove);
  desk.RunMet(MetAction::Remove);
  ui.Files = {{"first.met"}};
  desk.RunMet(MetAction::Replace);
  EXPECT_THAT(view.Fields.MetFiles, ElementsAre("first.met"));
  desk.RunMet(MetAction::Remove);
  EXPECT_FALSE(desk.OffersMet(MetAction::Remove));
  EXPECT_TRUE(desk.Save(false));
  EXPECT_THAT(ui.LastMessage(),
              StartsWith("You have not specified any MET files, so you must bypass simulation of "
                         "water temperature."));
  EXPECT_TRUE(qual.Bypass[1] && !view.Fields.Calculated[0]);
}

TEST_F(QualDeskTest, DatesAndPrintStepsAreHeldAgainstTheSimulations) {
  ASSERT_TRUE(desk.Open(kName));
  EXPECT_TRUE(desk.StartDateLeft() && desk.EndDateLeft());
  view.Fields.StartDate -= 1;
  view.Fields.EndDate += 1;
  EXPECT_FALSE(desk.StartDateLeft());
  EXPECT_EQ(ui.LastMessage(),
            "The starting date for the water quality simulation must not be earlier than for the "
            "hydrodynamic simulation.");
  EXPECT_FALSE(desk.EndDateLeft());
  EXPECT_EQ(ui.LastMessage(),
            "The ending date for the water quality simulation must not be later than for the "
            "hydrodynamic simulation.");
  EXPECT_FALSE(desk.Save(false));
  EXPECT_EQ(ui.LastMessage(),
            "The first print time step starting date/time value (04/01/25 00:00) is greater than "
            "the simulation starting time (03/31/25 00:00).");
  EXPECT_EQ(folder.Read(kName), Example(kName));
}

TEST_F(QualDeskTest, ANetworkThatChangesIsFollowedByNameAndOnlyWhenTheUserWants) {
  ASSERT_TRUE(desk.Open(kName));
  const QualBranchRec before = qual.Branches[1];
  auto& xsects = hydro.Branches[1].XSects;
  xsects.Resize(++hydro.Branches[1].XSectCount);
  std::rotate(xsects.begin() + 2, xsects.end() - 1, xsects.end());
  xsects[3] = xsects[2];
  xsects[3].Name = "CR new";
  xsects[6].Name = "CR other name";
  hydro.Branches[++hydro.BranchCount] = hydro.Branches[3];
  hydro.Branches[4].Name = "New Creek";

  ui.Answers = {Answer::No, Answer::No, Answer::Yes};
  desk.Activated();
  desk.Activated();  // does not ask again
  EXPECT_FALSE(desk.Save(false));
  EXPECT_EQ(folder.Read(kName), Example(kName));
  EXPECT_TRUE(desk.Save(false));
  EXPECT_TRUE(ui.Answers.empty());
  EXPECT_EQ(qual.Branches[1].XSects[2], before.XSects[2]);
  EXPECT_EQ(qual.Branches[1].XSects[3].InitialConc, before.XSects[2].InitialConc);
  EXPECT_EQ(qual.Branches[1].XSects[4], before.XSects[3]);
  EXPECT_EQ(qual.Branches[1].XSects[6].InitialConc, before.XSects[5].InitialConc);
  EXPECT_EQ(qual.Branches[4].BranchKinetics[16], 25);
  QualInput again;
  EXPECT_TRUE(LoadQNPFile(again, project, hydro, ui, kName));
  EXPECT_TRUE(FitsNetwork(again, hydro) && HasNetworkNames(again, hydro));

  hydro.Branches[1].XSects[1].Name = "Renamed";
  desk.Activated();
  EXPECT_EQ(desk.PlottedRemark(1, 1), "The network has another name for this cross section.");
  EXPECT_EQ(desk.PlottedRemark(2, 1) + desk.PlottedRemark(1, 2), "");
  EXPECT_TRUE(desk.OffersNetworkNames());
  desk.TakeNetworkNames();
  EXPECT_FALSE(desk.OffersNetworkNames());
  EXPECT_EQ(desk.Plotted().TextMatrix(1, 1), "Renamed");
}

TEST_F(QualDeskTest, AsManyCrossSectionsMayBeOthersAndAnotherNetworkIsToldOf) {
  ASSERT_TRUE(desk.Open(kName));
  const QualBranchRec before = qual.Branches[1];
  hydro.FileName = "saved under another name.hnp";
  hydro.Branches[1].XSects[1].Name = "CR renamed";
  ui.Answers = {Answer::No};
  desk.Activated();
  EXPECT_THAT(ui.LastMessage(), StartsWith("The network is that of saved under another name.hnp "
                                           "now.\r\n\r\nThe network has other cross sections "));
  EXPECT_TRUE(qual.Branches[1] == before && !qual.Dirty);
  EXPECT_EQ(desk.Plotted().TextMatrix(1, 2), "CR renamed");
  auto& xsects = hydro.Branches[1].XSects;
  std::rotate(xsects.begin() + 2, xsects.begin() + 3, xsects.begin() + 9);  // as many, moved
  ui.Answers = {Answer::Yes};
  desk.Edited();
  EXPECT_TRUE(desk.Save(false) && ui.Answers.empty());
  EXPECT_EQ(qual.Branches[1].XSects[9], before.XSects[3]);
  EXPECT_EQ(qual.Branches[1].XSects[3], before.XSects[4]);

  hydro.Branches[++hydro.BranchCount].Name = "Mill Race";
  qual.Branches[++qual.BranchCount].Name = "Mill Race";
  desk.Activated();
  EXPECT_EQ(view.Names.back(), "Mill Race");
  EXPECT_FALSE(desk.Save(false));
  EXPECT_THAT(ui.LastMessage(), StartsWith("You must have at least 3 cross sections in your "));
}

TEST_F(QualDeskTest, GivingUpAndTheProjectsOwnChoicesAreKept) {
  ASSERT_TRUE(desk.Open(kName));
  project.LatFileQ = "other.lat";  // chosen in the project window meanwhile
  view.Fields.Calculated[2] = !view.Fields.Calculated[2];
  desk.Edited();
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(desk.Save(false));
    EXPECT_EQ(project.LatFileQ + qual.LatFile + view.Fields.LatFile, "other.latother.latother.lat");
  }
  project.MetFiles[1] = "a.met";
  project.BCFilesQ[1].Downstream = "b.bcf";
  desk.Activated();
  EXPECT_EQ(view.Fields.MetFiles[0] + view.Ends.DSFile, "a.metb.bcf");
  desk.CalculateAll(false);
  ui.Answers = {Answer::No};
  EXPECT_TRUE(desk.QueryUnload());
  EXPECT_EQ(ui.LastMessage(), "Save changes to Water Quality input file?");
  EXPECT_FALSE(qual.Dirty);
}

TEST_F(QualDeskTest, AnotherFileThatCannotBeReadLeavesAllAsSavedOrGivenUp) {
  ASSERT_TRUE(desk.Open(kName));
  project.QualFile = folder.Write("other.qnp", "cut short\r\n");
  view.Fields.LatFile = "new.lat";
  desk.Edited();
  ui.Answers = {Answer::Yes, Answer::Abort};
  EXPECT_FALSE(desk.Open("other.qnp"));
  EXPECT_EQ(project.QualFile, folder.Path("other.qnp")) << "the choice that led here";
  EXPECT_TRUE(desk.Save(false) && qual.LatFile == "new.lat" && project.QualFile == kName);

  hydro.Branches[1].XSects.Resize(++hydro.Branches[1].XSectCount);
  ui.Answers = {Answer::Yes};
  desk.Activated();
  EXPECT_TRUE(FitsNetwork(qual, hydro));
  ui.Answers = {Answer::No, Answer::Abort};
  EXPECT_FALSE(desk.Open("other.qnp") || FitsNetwork(qual, hydro));
  ui.Answers = {Answer::Yes};
  EXPECT_TRUE(desk.Save(false) && ui.Answers.empty() && FitsNetwork(qual, hydro));
}

}  // namespace
}  // namespace lomaris

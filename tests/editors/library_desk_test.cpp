#include "editors/library_desk.h"

#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/editor_fixture.h"
#include "model/network_in_memory.h"

namespace lomaris {
namespace {

class FakeLibraryView : public LibraryView {
 public:
  std::string Lines, Text, Caption, Dialog;
  std::vector<std::string> Names;
  int Selected = -2;
  std::optional<SectionName> Asked;

  std::string Title() const override { return Lines; }
  void ShowTitle(const std::string& title) override { Lines = title; }
  std::string Description() const override { return Text; }
  void ShowDescription(const std::string& description) override { Text = description; }
  void ShowList(const std::vector<std::string>& names, int selected) override {
    Names = names;
    Selected = selected;
  }
  std::optional<SectionName> AskName(const std::string& title, const SectionName&) override {
    Dialog = title;
    return Asked;
  }
  void SetCaption(const std::string& caption) override { Caption = caption; }
};

constexpr const char* kName = "corvane_shapes.xsg";

class LibraryDeskTest : public EditorTest {
 protected:
  void SetUp() override { ASSERT_TRUE(desk.Open(kName)); }

  FakeLibraryView view;
  LibraryDesk desk{around, view};
};

TEST_F(LibraryDeskTest, UneditedIsSavedAsItWasRead) {
  EXPECT_EQ(view.Caption, "Cross Section Library - corvane_shapes.xsg");
  for (int entry = 1; entry < 16; ++entry) EXPECT_TRUE(desk.SelectEntry(entry));
  EXPECT_TRUE(desk.QueryUnload() && desk.Save(false) && ui.Messages.empty());
  EXPECT_EQ(folder.Read(kName), Example(kName));
  view.Lines = "One\r\nTwo";
  EXPECT_TRUE(desk.Save(false));
  EXPECT_THAT(folder.Read(kName), testing::StartsWith("One\r\nTwo\r\n\r\n 16 \r\n"));
  ui.Files = {{folder.Path("b.xsg")}};
  workbench.Edited = {folder.Path("b.xsg")};
  EXPECT_FALSE(desk.Save(true));
  EXPECT_EQ(ui.LastMessage(), "You can open a given file only once per session.");
}

TEST_F(LibraryDeskTest, PointsThatDoNotFollowStopTheStore) {
  const std::tuple<int, const char*, const char*> rows[] = {
      {1, "0", "The station for point number 2 did not increase; please correct."},
      {2, "0", "The depth for point number 2 was identical to the prior point; please correct."},
      {2, "deep", "Invalid number entered (AF-GORGE, point 2): deep"}};
  const XSectLibrary before = desk.Library();
  for (const auto& [col, text, message] : rows) {
    const std::string kept = desk.Points().TextMatrix(2, col);
    desk.Points().SetTextMatrix(1, col, "0");
    desk.Points().SetTextMatrix(2, col, text);
    EXPECT_FALSE(desk.SelectEntry(3));
    EXPECT_EQ(ui.LastMessage(), message);
    EXPECT_TRUE(view.Selected == 0 && desk.Library() == before);
    EXPECT_EQ(ui.Messages.back().Title,
              col == 2 && text[0] == 'd' ? "Error" : "Error in Cross Section AF-GORGE");
    ASSERT_TRUE(desk.Open(kName));
  }
}

TEST_F(LibraryDeskTest, EntriesAreAddedAndDeleted) {
  view.Asked = {"NINE-LONG", ""};
  desk.Add();
  EXPECT_EQ(ui.LastMessage(),
            "The cross section name must range from 1 to 8 characters in length.");
  EXPECT_EQ(view.Names.size(), 16u);
  view.Asked = {"LAST", "A ditch"};
  desk.Add();
  EXPECT_EQ(view.Names.at(static_cast<std::size_t>(view.Selected)) + view.Text, "LASTA ditch");
  EXPECT_EQ(desk.Library().XSectCount, 17);

  ui.Answers = {Answer::No, Answer::Yes};
  EXPECT_TRUE(desk.SelectEntry(1));
  desk.Delete();
  EXPECT_EQ(ui.LastMessage(),
            "Are you sure you want to PERMANENTLY delete cross section AF-RIFF from the Cross "
            "Section Library? If Yes, you must manually correct all relevant Hydrodynamic files "
            "which may reference this cross section.");
  desk.Delete();
  EXPECT_EQ(desk.Library().XSectCount, 16);
  EXPECT_EQ(view.Names.at(1) + view.Names.back(), "AF-RUNLAST");
  ui.Answers = {Answer::No};
  EXPECT_TRUE(desk.QueryUnload());
}

TEST_F(LibraryDeskTest, NamesAreKeptApartAndForeignLibrariesAsked) {
  view.Asked = {"CR-RUN1", ""};
  desk.Add();
  EXPECT_EQ(ui.LastMessage(), "The library has a cross section CR-RUN1 already.");
  EXPECT_EQ(desk.Library().XSectCount, 16);

  project.XSGFileH = "another.xsg";
  EXPECT_TRUE(desk.SelectEntry(9));
  view.Asked = {"CR-NEW", ""};
  ui.Answers = {Answer::Yes, Answer::No};
  desk.Rename();
  EXPECT_THAT(ui.LastMessage(), testing::HasSubstr("of the project, which is another.xsg."));
  EXPECT_TRUE(!hydro.HydroLoaded && view.Names.at(9) == "CR-NEW");

  project.XSGFileH = kName;
  ASSERT_TRUE(desk.Open(kName) && desk.SelectEntry(9));
  view.Asked = {"CR-LAST", ""};
  ui.Answers = {Answer::Yes};
  ui.Files = {{folder.Path("copy.xsg")}};
  desk.Rename();
  EXPECT_TRUE(desk.Save(true));
  EXPECT_THAT(ui.LastMessage(), testing::HasSubstr("keeps the old names"));
  EXPECT_FALSE(hydro.Dirty) << "the project's library still has the old name";
}

TEST_F(LibraryDeskTest, PointsOfTheFileAreLeftAlone) {
  const std::string flat =
      folder.Write("flat.xsg",
                   "1\r\n2\r\n3\r\n 2 \r\nFLAT        x\r\n 2 \r\n1.00\t0.00\r\n"
                   "1.00\t9.00\r\nB           y\r\n 1 \r\n1.00\t0.00\r\n");
  EXPECT_TRUE(desk.Open(flat) && desk.SelectEntry(1) && desk.SelectEntry(0));
  EXPECT_TRUE(desk.Points().EndEdit(2, 1, "8"));
  EXPECT_FALSE(desk.SelectEntry(1));
}

TEST_F(LibraryDeskTest, ANetworkThatIsNotSavedIsAsOnDiskForTheOtherWindows) {
  EXPECT_TRUE(desk.SelectEntry(9));
  view.Asked = {"CR-NEW", "Run"};
  ui.Answers = {Answer::Yes};
  desk.Rename();
  ui.Answers = {Answer::No};
  EXPECT_TRUE(desk.Save(false) && ui.Answers.empty());
  EXPECT_TRUE(hydro.HydroLoaded && !hydro.Dirty);
  EXPECT_EQ(hydro.Branches[1].XSects[1].Lookup, "CR-RUN1");
}

TEST_F(LibraryDeskTest, LookupNamesFollowARename) {
  EXPECT_TRUE(desk.SelectEntry(9));
  view.Asked = {"CR-NEW", "Run"};
  ui.Answers = {Answer::Yes, Answer::Yes};
  desk.Rename();
  EXPECT_EQ(ui.LastMessage(),
            "Are you sure you want to rename the currently selected cross section CR-RUN1? If Yes, "
            "you must manually correct all relevant Hydrodynamic files which may reference this "
            "cross section.");
  EXPECT_EQ(view.Dialog + view.Names.at(9), "Rename Cross SectionCR-NEW");
  EXPECT_EQ(hydro.Branches[1].XSects[1].Lookup + hydro.Branches[1].XSects[2].Lookup,
            "CR-NEWCR-RIFF1");
  EXPECT_THAT(workbench.Notices, testing::ElementsAre("CR-RUN1 to CR-NEW in 0"));
  ui.Answers = {Answer::No};
  EXPECT_TRUE(hydro.Dirty && desk.QueryUnload() && !hydro.Dirty);
  EXPECT_EQ(hydro.Branches[1].XSects[1].Lookup, "CR-RUN1") << "as the library on disk has it";
  EXPECT_EQ(workbench.Notices.back(), "CR-NEW to CR-RUN1 in 0");

  ASSERT_TRUE(desk.Open(kName) && desk.SelectEntry(9));
  ui.Answers = {Answer::Yes};
  desk.Rename();
  folder.Write("corvane_river.hnp", "of another program");
  ui.Answers = {Answer::Yes, Answer::No};
  EXPECT_FALSE(desk.Save(false));
  EXPECT_THAT(ui.LastMessage(), testing::StartsWith("File corvane_river.hnp has been changed"));
  ui.Answers = {Answer::Yes, Answer::Yes};
  EXPECT_TRUE(SaveNetworkFirst(hydro, project, ui));
  EXPECT_THAT(folder.Read("corvane_river.hnp"), testing::HasSubstr("\r\nCR-NEW"));
  EXPECT_EQ(workbench.Notices.back(), "saved corvane_shapes.xsg");

  hydro = {};
  view.Asked = {"CR-LAST", ""};
  ui.Answers = {Answer::Yes};
  project.HydroFile = "(Not Specified)";
  desk.Rename();
  EXPECT_EQ(ui.LastMessage(),
            "Unable to load hydrodynamic file named \"\". XSG library references will not be "
            "updated.");
}

}  // namespace
}  // namespace lomaris

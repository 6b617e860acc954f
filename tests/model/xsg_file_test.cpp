#include "model/xsg_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

constexpr char kSample[] =
    "Tavresk\r\n"
    "surveyed 1996\r\n"
    "\r\n"
    " 4 \r\n"
    "MAIN1       Ca\xF1on  reach\r\n"
    " 2 \r\n"
    "0.00\t-12.50\r\n"
    "0.13\t1234567.00\r\n"
    "\xC4\xD6"
    "345678    read before \r\n"
    " 0 \r\n"
    "NODESCR     \r\n"
    " 0 \r\n"
    "EMPTY       \r\n"
    " 0 \r\n";

LibrarySection Section(const char* name, const char* description) {
  LibrarySection section;
  section.Name = name;
  section.Description = description;
  return section;
}

XSectLibrary SampleLibrary() {
  XSectLibrary library;
  library.FileName = "a.xsg";
  library.Title[1] = "Tavresk";
  library.Title[2] = "surveyed 1996";
  library.XSectCount = 4;
  library.XSects.Resize(4);
  library.XSects[1] = Section("MAIN1", "Ca\u00F1on  reach");
  library.XSects[1].PointCount = 2;
  library.XSects[1].Points.Resize(2);
  library.XSects[1].Points[1] = {.Station = -12.5F, .Depth = -0.001F};
  library.XSects[1].Points[2] = {.Station = 1234567, .Depth = 0.13F};
  library.XSects[2] = Section("\u00C4\u00D63456789", "read before ");
  library.XSects[3] = Section("NODESCR", "Unknown");
  library.XSects[4] = Section("EMPTY", "");
  return library;
}

/// The sample as it comes back from a file.
XSectLibrary SampleRead() {
  XSectLibrary library = SampleLibrary();
  library.XSects[1].Description = "Ca\u00F1on reach ";
  library.XSects[1].Points[1].Depth = 0;
  library.XSects[2].Name = "\u00C4\u00D6345678";
  library.XSects[4].Description = "Unknown";
  return library;
}

TEST(LibraryFile, HasItsLayoutAndComesBack) {
  const TempFolder folder;
  ScriptedUi ui;
  const ProjectData project;
  XSectLibrary library = SampleLibrary();
  library.Dirty = true;
  ASSERT_TRUE(SaveXSGFile(library, project, ui, "a.xsg "));
  EXPECT_EQ(folder.Read("a.xsg"), kSample);
  EXPECT_FALSE(library.Dirty);

  ASSERT_TRUE(LoadXSGFile(library, project, ui, " a.xsg"));
  EXPECT_EQ(library, SampleRead());
  ASSERT_TRUE(SaveXSGFile(library, project, ui, "a.xsg"));
  const std::string readOnce = folder.Read("a.xsg");
  EXPECT_EQ(readOnce, ReplaceAll(kSample, "  reach", " reach "));
  ASSERT_TRUE(LoadXSGFile(library, project, ui, "a.xsg"));
  ASSERT_TRUE(SaveXSGFile(library, project, ui, "a.xsg"));
  EXPECT_EQ(folder.Read("a.xsg"), readOnce);
  EXPECT_TRUE(ui.Messages.empty());
  EXPECT_EQ(ui.BusyDepth, 0);
}

TEST(LibraryFile, AnEmptyLibraryHasFourLines) {
  const TempFolder folder;
  ScriptedUi ui;
  XSectLibrary library;
  ASSERT_TRUE(SaveXSGFile(library, {}, ui, "a.xsg"));
  EXPECT_EQ(folder.Read("a.xsg"), "\r\n\r\n\r\n 0 \r\n");

  folder.Write("b.xsg", "a title and no more");
  ASSERT_TRUE(LoadXSGFile(library, {}, ui, "b.xsg"));
  EXPECT_EQ(library.Title[1], "a title and no more");
  EXPECT_EQ(library.XSectCount, 0);
}

TEST(LibraryFile, BlankAndMissingNamesLoadNothing) {
  const TempFolder folder;
  ScriptedUi ui;
  XSectLibrary library = SampleLibrary();
  EXPECT_TRUE(LoadXSGFile(library, {}, ui, ""));
  EXPECT_TRUE(ui.Messages.empty());
  EXPECT_TRUE(LoadXSGFile(library, {}, ui, "new.xsg"));
  EXPECT_EQ(ui.LastMessage(),
            "Cross section library file new.xsg not found; it will now be created.");
  EXPECT_EQ(ui.Messages.back().Title, "Error");
  EXPECT_EQ(library, SampleLibrary());
}

struct BadLibrary {
  const char* Name;
  std::string Text;  ///< behind the three titles
  const char* Message;
};

class BadLibraryFile : public testing::TestWithParam<BadLibrary> {};

TEST_P(BadLibraryFile, IsToldAndLeavesTheRecord) {
  const TempFolder folder;
  ScriptedUi ui;
  folder.Write("a.xsg", "1\r\n2\r\n3\r\n" + GetParam().Text);
  XSectLibrary library = SampleLibrary();
  EXPECT_FALSE(LoadXSGFile(library, {}, ui, "a.xsg"));
  EXPECT_EQ(ui.LastMessage(), ReplaceAll(GetParam().Message, "|", "\r\n\r\n"));
  EXPECT_EQ(library, SampleLibrary());
  EXPECT_EQ(ui.BusyDepth, 0);
}

std::string Words(int count) {
  std::string line;
  for (int i = 0; i < count; ++i) line += "w ";
  return line;
}

INSTANTIATE_TEST_SUITE_P(
    LibraryFile, BadLibraryFile,
    testing::Values(
        BadLibrary{"BlankNameLine", "1\r\n \t \r\n0\r\n",
                   "Invalid input reading cross section name and description."},
        BadLibrary{"HugeCount", "1000000000\r\nA\r\n0\r\n",
                   "Following error occurred on line 5 of file a.xsg|Input past end of file: the "
                   "file is too short to hold 1000000000 of them|Last line read was: 1000000000|"
                   "Input aborted."},
        BadLibrary{"NegativeCount", "-1\r\n",
                   "Following error occurred on line 5 of file a.xsg|Subscript out of range: -1 is "
                   "not a possible count|Last line read was: -1|Input aborted."},
        BadLibrary{"HugePointCount", "1\nA\n2000000000\n0 0\n",
                   "Following error occurred on line 7 of file a.xsg|Input past end of file: the "
                   "file is too short to hold 2000000000 of them|Last line read was: 2000000000|"
                   "Input aborted."},
        BadLibrary{"MissingPoint", "1\nA\n2\n0 0\n",
                   "Following error occurred on line 8 of file a.xsg|Input past end of file: the "
                   "file ends before all that it announces|Last line read was: 0 0|Input aborted."},
        BadLibrary{"MissingEntry", "2\nA\n0\n",
                   "Following error occurred on line 7 of file a.xsg|Input past end of file: the "
                   "file ends before all that it announces|Last line read was: 0|Input aborted."}),
    [](const auto& row) { return row.param.Name; });

TEST(LibraryFile, TakesAtMostHundredWordsOfALine) {
  const TempFolder folder;
  ScriptedUi ui;
  XSectLibrary library;
  folder.Write("a.xsg", "\n\n\n1\n" + Words(100) + "\n0\n");
  EXPECT_TRUE(LoadXSGFile(library, {}, ui, "a.xsg"));
  EXPECT_EQ(library.XSects[1].Description, Words(99));

  folder.Write("a.xsg", "\n\n\n1\n" + Words(101) + "\n0\n");
  EXPECT_FALSE(LoadXSGFile(library, {}, ui, "a.xsg"));
  ASSERT_EQ(ui.Messages.size(), 2u);
  EXPECT_THAT(ui.Messages[0].Text, testing::StartsWith("Array bounds exceeded in BreakApart:"));
  EXPECT_THAT(ui.Messages[1].Text, testing::HasSubstr("Subscript out of range"));
}

TEST(LibraryFile, CutOffAnywhereLoadsOrLeavesTheRecord) {
  const TempFolder folder;
  const std::string sample = kSample;
  for (std::size_t size = 0; size < sample.size(); ++size) {
    folder.Write("a.xsg", sample.substr(0, size));
    ScriptedUi ui;
    ui.Answers.assign(20, Answer::Abort);
    XSectLibrary library = SampleLibrary();
    if (LoadXSGFile(library, {}, ui, "a.xsg")) continue;
    EXPECT_EQ(library, SampleLibrary());
  }
}

TEST(LibraryFile, RefusesAnEntryThatCouldNotBeReadBack) {
  const TempFolder folder;
  ScriptedUi ui;
  ui.Answers = {Answer::Abort};
  XSectLibrary library = SampleLibrary();
  library.XSects[2].Name = " \t";
  EXPECT_FALSE(SaveXSGFile(library, {}, ui, "a.xsg"));
  EXPECT_THAT(ui.LastMessage(), testing::HasSubstr("cross section 2 of the library has no name"));
  EXPECT_THAT(ui.LastMessage(), testing::HasSubstr("in procedure \"SaveXSGFile\""));
  EXPECT_EQ(folder.Entries(), "");
}

}  // namespace
}  // namespace lomaris

#include "model/xsg_file.h"

#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

constexpr char kSample[] =
    "Tavresk\r\nsurveyed 1996\r\n\r\n 4 \r\n"
    "MAIN1       Ca\xF1on  reach\r\n 2 \r\n0.00\t-12.50\r\n0.13\t1234567.00\r\n"
    "\xC4\xD6"
    "345678    read before \r\n 0 \r\nNODESCR     \r\n 0 \r\nEMPTY       \r\n 0 \r\n";

/// The record of the sample file.
XSectLibrary SampleLibrary() {
  XSectLibrary library;
  library.FileName = "a.xsg";
  library.Title[1] = "Tavresk";
  library.Title[2] = "surveyed 1996";
  library.XSectCount = 4;
  library.XSects.Resize(4);
  library.XSects[1] = {"MAIN1", "Ca\u00F1on reach ", 2, {1, 2}};
  library.XSects[1].Points[1] = {.Station = -12.5F, .Depth = 0};
  library.XSects[1].Points[2] = {.Station = 1234567, .Depth = 0.13F};
  library.XSects[2] = {"\u00C4\u00D6345678", "read before ", 0, {}};
  library.XSects[3] = {"NODESCR", "Unknown", 0, {}};
  library.XSects[4] = {"EMPTY", "Unknown", 0, {}};
  return library;
}

class LibraryFile : public testing::Test {
 protected:
  bool Load(const std::string& text) {
    folder_.Write("a.xsg", text);
    const bool loaded = LoadXSGFile(library_, {}, ui_, " a.xsg");
    EXPECT_TRUE(!loaded || library_.OnDisk == StampOf("a.xsg"));
    library_.OnDisk = {};  // of this file alone
    return loaded;
  }
  bool Save() { return SaveXSGFile(library_, {}, ui_, "a.xsg "); }

  TempFolder folder_;
  ScriptedUi ui_;
  XSectLibrary library_ = SampleLibrary();
};

TEST_F(LibraryFile, HasItsLayoutAndComesBack) {
  library_.XSects[1].Description = "Ca\u00F1on  reach";
  library_.XSects[1].Points[1].Depth = -0.001F;
  library_.XSects[2].Name += "9";
  library_.XSects[4].Description = "";
  library_.Dirty = true;
  ASSERT_TRUE(Save());
  EXPECT_EQ(folder_.Read("a.xsg"), kSample);
  EXPECT_FALSE(library_.Dirty);

  ASSERT_TRUE(Load(kSample));
  EXPECT_EQ(library_, SampleLibrary());
  ASSERT_TRUE(Save());
  EXPECT_EQ(folder_.Read("a.xsg"), ReplaceAll(kSample, "  reach", " reach "));
  EXPECT_TRUE(ui_.Messages.empty());
}

TEST_F(LibraryFile, NewAndEmptyFilesAreNoFailure) {
  EXPECT_TRUE(LoadXSGFile(library_, {}, ui_, "") && ui_.Messages.empty());
  EXPECT_TRUE(LoadXSGFile(library_, {}, ui_, "new.xsg"));
  EXPECT_EQ(ui_.LastMessage(),
            "Cross section library file new.xsg not found; it will now be created.");
  EXPECT_EQ(library_, SampleLibrary());
  EXPECT_TRUE(Load("") && Save());
  EXPECT_EQ(folder_.Read("a.xsg"), "\r\n\r\n\r\n 0 \r\n");
}

const std::string k99Words = ReplaceAll(std::string(99, 'w'), "w", "w ");

TEST_F(LibraryFile, IsToldToBeBadAndLeavesTheRecord) {
  const std::string start = "Input past end of file: the file ";
  const std::array<std::string, 3> rows[] = {
      {"1000000000\nA\n0\n", "5", start + "is too short to hold 1000000000 of them"},
      {"1\nA\n2000000000\n0 0\n", "7", start + "is too short to hold 2000000000 of them"},
      {"1\nA\n2\n0 0\n", "8", start + "ends before all that it announces"},
      {"1\n" + k99Words + "w w\n0\n", "6", "Subscript out of range"}};
  for (const auto& [text, line, message] : rows) {
    EXPECT_FALSE(Load("1\r\n2\r\n3\r\n" + text));
    EXPECT_THAT(ui_.LastMessage(), HasSubstr("line " + line + " of file a.xsg\r\n\r\n" + message));
    EXPECT_EQ(library_, SampleLibrary());
  }
  EXPECT_FALSE(Load("\n\n\n1\n \t \n0\n"));
  EXPECT_EQ(ui_.LastMessage(), "Invalid input reading cross section name and description.");
  EXPECT_TRUE(Load("\n\n\n1\nw " + k99Words + "\n0\n"));
  EXPECT_EQ(library_.XSects[1].Description, k99Words);
}

TEST_F(LibraryFile, RefusesAnEntryThatCouldNotBeReadBack) {
  const std::array<std::string, 3> rows[] = {
      {" \t", "", "has no name"},
      {"A B", "", "has a blank in its name, A B"},
      {"A", k99Words + "w", "has a description of more than 99 words"}};
  for (const auto& [name, description, message] : rows) {
    ui_.Answers = {Answer::Abort};
    library_.XSects[2] = {name, description, 0, {}};
    EXPECT_FALSE(Save());
    EXPECT_THAT(ui_.LastMessage(), HasSubstr("cross section 2 of the library " + message));
    EXPECT_EQ(folder_.Entries(), "");
  }
}

}  // namespace
}  // namespace lomaris

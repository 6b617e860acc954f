#include "import/browse_file.h"

#include <gtest/gtest.h>

#include "support/scripted_ui.h"

namespace lomaris {
namespace {

TEST(BrowseFile, StartsWhereTheLastChoiceWas) {
  const std::string dat = "HEC decks (*.dat)|*.dat|All files (*.*)|*.*";
  struct Row {
    std::string Filter, FileName, Answer, Start, Extension, Kept;  ///< kept for the next dialog
  };
  const Row rows[] = {{dat, "a.dat", "/d/B.Dat", "/b/", "dat", "/d/"},
                      {dat, "C:\\a.dat", "", "C:\\", "dat", "/b/"},
                      {"(All Database Tables)", "", "/d/t.db", "/b/", "", "/d/"},
                      {"Imports|*.imp*|", "", "/d/x.imp1", "/b/", "", "/d/"},
                      {"One|*.cfg", "", "", "/b/", "cfg", "/b/"}};
  for (const Row& row : rows) {
    for (const bool saves : {false, true}) {
      ScriptedUi ui;
      FakeSettings settings;
      settings.SetValue("Lomaris", "BrowseDir", "/b/");
      ui.Files = {{row.Answer, "/e/2.dat"}};
      if (row.Answer.empty()) ui.Files = {{}};
      BrowseRequest request{row.Filter, kOverwritePrompt, "Choose", row.FileName, !saves, saves};
      EXPECT_EQ(BrowseFile(request, ui, settings), row.Kept == "/b/" ? row.FileName : row.Answer);
      const FileDialog& dialog = ui.FileDialogs.at(0);
      EXPECT_EQ(dialog.Title + dialog.InitialDirectory, "Choose" + row.Start);
      EXPECT_EQ(dialog.DefaultExtension, row.Extension);
      EXPECT_EQ(dialog.Flags, saves ? 0x802u : 0x1202u);
      EXPECT_EQ(dialog.SaveMode, saves);
      EXPECT_EQ(dialog.Filter, request.Filter);
      EXPECT_EQ(settings.Value("Lomaris", "BrowseDir", ""), row.Kept);
      if (row.Filter.front() != '(') continue;
      EXPECT_TRUE(
          dialog.Filter.starts_with("All Supported Formats|*.bmd;*.db;*.dbf;*.mdb;*.xls;"
                                    "*.wk3;*.txt;*.csv;*.gdc;*.odc|Paradox (KORB) Table"));
      EXPECT_EQ(settings.Value("BrowseDir", "DB", ""), "/d/");
    }
  }
}

}  // namespace
}  // namespace lomaris

#include <array>
#include <tuple>

#include <gtest/gtest.h>

#include "core/error_report.h"
#include "core/profile.h"
#include "core/save_file.h"
#include "core/text.h"
#include "core/window_position.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

TEST(WindowPositions, AreKeptOnTheScreen) {
  constexpr ScreenArea kScreen = {0, 300, 15000, 11000};
  constexpr WindowPosition kCurrent = {100, 400, 6000, 5000};
  constexpr WindowState kMin = WindowState::Minimised, kMax = WindowState::Maximised;
  constexpr std::pair<const char*, const char*> kKeys[] = {
      {"Left", "X"}, {"Top", "Y"}, {"Width", "W"}, {"Height", "H"}, {"WindowState", "Maximized"}};
  // The values of the keys; what an editor and a small window get.
  const std::tuple<std::array<const char*, 5>, WindowPosition, WindowPosition> rows[] = {
      {{"", "?", "nan", "-1E999", "wide"}, kCurrent, {4500, 3300, 6000, 5000}},
      {{"9.5", "400", "90", "0", "1"}, {10, 400, 90, 15, kMin}, {10, 400, 500, 500, kMax}},
      {{"-50", "11000", "600", "1E9", "2"}, {0, 300, 600, 11000, kMax}, {0, 300, 600, 11000}}};
  for (const auto& [values, editor, small] : rows) {
    FakeSettings settings;
    for (std::size_t i = 0; i < values.size(); ++i) {
      settings.SetValue("Form", kKeys[i].first, values[i]);
      settings.SetValue("Form", kKeys[i].second, values[i]);
    }
    const WindowPosition stored = StoredPosition(settings, "Form", kCurrent, kScreen);
    EXPECT_TRUE(stored == editor) << values[0];
    EXPECT_TRUE(GetWindowPos(settings, "Form", kCurrent, kScreen) == small) << values[0];
    StorePosition(settings, "Form", {1, 1, 1, 1, kMax});  // not the place: it is not normal
    EXPECT_EQ(StoredPosition(settings, "Form", kCurrent, kScreen).Left, stored.Left);
  }
}

TEST(SaveFile, AsksUntilTheExtensionFits) {
  ScriptedUi ui;
  FakeSettings settings;
  const auto answer = [&](const std::string& filter) {
    return SaveFile(filter, "", kAllowMultiSelect, "Save as", "/p/river.prj", ui, settings);
  };
  ui.Files = {{"/d/x.lat"}, {"/d/hnp"}, {"C:\\d\\a.b.HNP"}};
  EXPECT_EQ(answer("Hydrodynamic (*.hnp)|*.hnp|"), "C:\\d\\a.b.HNP");
  EXPECT_EQ(ui.LastMessage(), "You must save the file with a file extension of hnp");
  EXPECT_EQ(settings.Value("BrowseDir", "HNP", ""), "C:\\d\\");
  const FileDialog dialog = ui.FileDialogs.back();
  EXPECT_EQ(dialog.InitialDirectory + dialog.FileName, "/p/*.hnp");
  EXPECT_EQ(dialog.Filter, "Hydrodynamic (*.hnp)|*.hnp|All files (*.*)|*.*");
  EXPECT_EQ(dialog.Flags, 3074u | kAllowMultiSelect);
  ui.Files = {{"/d/x.lat"}, {}, {"/e/x.whatever"}};
  EXPECT_EQ(answer("Hydrodynamic (*.hnp)|*.hnp|"), "");
  EXPECT_EQ(answer("Import (*.imp*)|*.imp*|"), "/e/x.whatever");
}

TEST(PutProfileString, ChangesOneKey) {
  const TempFolder folder;
  const std::string before =
      "; graph\r\n\r\n\r\n[Graph]\r\nTitle=Old\r\n\r\n; axis\r\nUnits=\xB0\x46\r\n";
  folder.Write("control.Graph", before);
  PutProfileString("CONTROL.graph", "GRAPH", "title", "Été;\n2", "");
  PutProfileString("CONTROL.graph", "Graph", "Units", "same", "same");
  EXPECT_EQ(folder.Read("control.Graph"), ReplaceAll(before, "Old", "\xC9t\xE9;; 2"));
  PutProfileString("control.Graph", "More", "Z", "3", "");
  EXPECT_TRUE(folder.Read("control.Graph").ends_with("\r\n\r\n\r\n[More]\r\nZ=3\r\n"));
}

TEST(ReportError, TellsAllAndKeepsItOnTheClipboard) {
  ScriptedUi ui;
  ui.BusyDepth = 2;
  ui.Answers = {Answer::Ignore};
  const RuntimeError error(ErrorNumber::DiskFull, "a.hnp");
  EXPECT_EQ(ReportError(ui, error, "SaveForm", "Form", "frmHydro", 120), Answer::Ignore);
  EXPECT_EQ(ReplaceAll(ui.LastMessage(), ProgramVersion(), "<version>"),
            "Sorry, but an unhandled error has occurred in Lomaris: \r\n\r\nError 61 (Disk full: "
            "a.hnp) at line 120 in procedure \"SaveForm\" of Form \"frmHydro\" (Program version "
            "<version>).\r\n\r\nYou can click \"Abort\" to cancel the pending operation, \"Retry\" "
            "to attempt to execute the statement again, or \"Ignore\" to skip the offending "
            "statement and continue with the following one. \r\n\r\nPlease email technical support "
            "and provide this information (this text has been placed on the clipboard so you can "
            "easily paste it into an email message).");
  EXPECT_EQ(ui.Clipboard, ui.LastMessage());
  EXPECT_EQ(ui.Messages[0].Title, "Critical Error");
  EXPECT_EQ(ui.Messages[0].DefaultAnswer, Answer::Retry);
  EXPECT_EQ(ui.BusyDepth, 0);
}

}  // namespace
}  // namespace lomaris

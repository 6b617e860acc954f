#include <gtest/gtest.h>

#include "core/error_report.h"
#include "core/profile.h"
#include "core/save_file.h"
#include "core/window_position.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

constexpr ScreenArea kScreen = {0, 300, 15000, 11000};
constexpr WindowState kMinimised = WindowState::Minimised, kMaximised = WindowState::Maximised;

TEST(WindowPositions, AreKeptOnTheScreen) {
  struct Row {
    std::array<const char*, 5> Values;  ///< left, top, width, height, state
    WindowPosition Editor, Small;       ///< the same values for both kinds of windows
  };
  const Row rows[] = {
      {{"", "", "", "", ""}, {100, 400, 6000, 5000}, {4500, 3300, 6000, 5000}},
      {{"x", "?", "nan", "-1E999", "wide"}, {100, 400, 6000, 5000}, {4500, 3300, 6000, 5000}},
      {{"1.5", "400", "900", "800", "2"}, {2, 400, 900, 800, kMaximised}, {2, 400, 900, 800}},
      {{"9", "400", "90", "80", "1"}, {9, 400, 90, 80, kMinimised}, {9, 400, 500, 500, kMaximised}},
      {{"14000", "11000", "600", "500", "0"}, {14000, 10800, 600, 500}, {14000, 10800, 600, 500}},
      {{"-50", "-50", "99999", "1E9", "7"}, {0, 300, 15000, 11000}, {0, 300, 15000, 11000}},
      {{"9", "400", "-5", "0", "-1"}, {9, 400, 15, 15}, {9, 400, 500, 500}}};
  for (const Row& row : rows) {
    FakeSettings settings;
    for (std::size_t i = 0; i < row.Values.size(); ++i) {
      constexpr const char* kKeys[] = {"Left", "Top", "Width", "Height", "WindowState"};
      constexpr const char* kSmallKeys[] = {"X", "Y", "W", "H", "Maximized"};
      settings.SetValue("HNPStartup", kKeys[i], row.Values[i]);
      settings.SetValue("frmSelect", kSmallKeys[i], row.Values[i]);
    }
    const WindowPosition current = {100, 400, 6000, 5000};
    EXPECT_TRUE(StoredPosition(settings, "HNPStartup", current, kScreen) == row.Editor &&
                GetWindowPos(settings, "frmSelect", current, kScreen) == row.Small)
        << row.Values[0];
  }
}

TEST(WindowPositions, OnlyANormalWindowStoresItsPlace) {
  FakeSettings settings;
  for (const WindowState state : {WindowState::Normal, kMaximised, kMinimised}) {
    const int place = state == WindowState::Normal ? 600 : 700;
    StorePosition(settings, "MainStartup", {place, place, place, place, state});
    SaveWindowPos(settings, "frmSelect", {place, place, place, place, state});
    EXPECT_EQ(settings.Value("frmSelect", "Maximized", ""), state == kMaximised ? "1" : "0");
  }
  const WindowPosition stored = {600, 600, 600, 600, WindowState::Normal};
  EXPECT_TRUE(GetWindowPos(settings, "frmSelect", {}, kScreen) == stored);
  EXPECT_EQ(StoredPosition(settings, "MainStartup", {}, kScreen).Left, 600);
  EXPECT_EQ(StoredPosition(settings, "MainStartup", {}, kScreen).State, kMaximised);
}

TEST(SaveFile, AsksUntilTheExtensionFits) {
  struct Row {
    std::string Filter, DefaultName;
    std::deque<std::vector<std::string>> Answers;
    std::string Proposal, Result, Key, Folder;  ///< key and folder: what is remembered
  };
  const std::string hnp = "Hydrodynamic (*.hnp)|*.hnp|", imp = "Import (*.imp*)|*.imp*|";
  const Row rows[] = {
      {hnp, "a.hnp", {{"C:\\d\\a.b.HNP"}}, "a.hnp", "C:\\d\\a.b.HNP", "HNP", "C:\\d\\"},
      {hnp, "", {{"/d/x.lat"}, {"/d/hnp"}, {"/e/x.hnp"}}, "*.hnp", "/e/x.hnp", "HNP", "/e/"},
      {hnp, "", {{"/d/x.lat"}, {}}, "*.hnp", "", "", ""},
      {imp, "", {{"/d/x.whatever"}}, "*.", "/d/x.whatever", "WHATEVER", "/d/"},
      {imp, "", {{"/d/bare"}}, "*.", "/d/bare", "", ""}};
  for (const Row& row : rows) {
    ScriptedUi ui;
    FakeSettings settings;
    ui.Files = row.Answers;
    EXPECT_EQ(SaveFile(row.Filter, row.DefaultName, kAllowMultiSelect, "Save as", "/p/river.prj",
                       ui, settings),
              row.Result);
    EXPECT_EQ(ui.FileDialogs.size(), row.Answers.size());
    EXPECT_EQ(ui.Messages.size() + 1, row.Answers.size());
    for (const MessageBox& box : ui.Messages) {
      EXPECT_EQ(box.Title + ": " + box.Text,
                "Error: You must save the file with a file extension of hnp");
    }
    const FileDialog& dialog = ui.FileDialogs.back();
    EXPECT_EQ(dialog.Title + dialog.InitialDirectory + dialog.FileName,
              "Save as/p/" + row.Proposal);
    EXPECT_EQ(dialog.Filter, row.Filter + "All files (*.*)|*.*");
    EXPECT_EQ(dialog.Flags, 3074u | 0x200u);
    EXPECT_EQ(settings.Values.size(), row.Key.empty() ? 0u : 1u);
    EXPECT_EQ(settings.Value("BrowseDir", row.Key, ""), row.Folder);
  }
}

TEST(PutProfileString, ChangesOneKey) {
  const TempFolder folder;
  const std::string before =
      "; of the graph program\r\n\r\n\r\n[Graph]\r\nTitle=Old\r\n\r\n; the "
      "axis\r\nUnits=\xB0\x46\r\n"
      "\r\n\r\n[Axes]\r\nX=1\r\n";
  struct Row {
    std::string Section, Key, Value, OldValue, From, To;
  };
  const Row rows[] = {{"Graph", "Title", "New = 2; x", "Old", "Title=Old", "Title=New = 2; x"},
                      {"GRAPH", "title", "Été", "", "Title=Old", "Title=\xC9t\xE9"},
                      {"Graph", "Title", "", "Old", "Title=Old", "Title="},
                      {"Graph", "Title", "Same", "Same", "", ""},
                      {"Axes", "Y", "2", "", "X=1\r\n", "X=1\r\nY=2\r\n"},
                      {"More", "Z", "3", "", "X=1\r\n", "X=1\r\n\r\n\r\n[More]\r\nZ=3\r\n"}};
  for (const Row& row : rows) {
    folder.Write("control.Graph", before);
    PutProfileString("CONTROL.graph", row.Section, row.Key, row.Value, row.OldValue);
    std::string after = before;
    after.replace(before.find(row.From), row.From.size(), row.To);
    EXPECT_EQ(folder.Read("control.Graph"), after);
  }
  PutProfileString("new", "Graph", "Title", "x", "");
  EXPECT_EQ(folder.Read("new"), "[Graph]\r\nTitle=x\r\n");
}

TEST(ReportError, TellsAllAndKeepsItOnTheClipboard) {
  for (const std::string line : {"", " at line 120"}) {
    ScriptedUi ui;
    ui.BusyDepth = 2;
    ui.Answers = {Answer::Ignore};
    const RuntimeError error(ErrorNumber::DiskFull, "a.hnp");
    EXPECT_EQ(ReportError(ui, error, "SaveForm", "Form", "frmHydro", line.empty() ? 0 : 120),
              Answer::Ignore);
    const MessageBox& box = ui.Messages.at(0);
    EXPECT_EQ(
        box.Text,
        "Sorry, but an unhandled error has occurred in Lomaris: \r\n\r\nError 61 (Disk full: "
        "a.hnp)" +
            line + " in procedure \"SaveForm\" of Form \"frmHydro\" (Program version " +
            std::string(ProgramVersion()) +
            ").\r\n\r\nYou can click \"Abort\" to cancel the pending operation, "
            "\"Retry\" to attempt to execute the statement again, or \"Ignore\" to skip the "
            "offending statement and continue with the following one. \r\n\r\nPlease email "
            "technical support and provide this information (this text has been placed on the "
            "clipboard so you can easily paste it into an email message).");
    EXPECT_EQ(ui.Clipboard, box.Text);
    EXPECT_EQ(ui.BusyDepth, 0);
    EXPECT_EQ(box.Title, "Critical Error");
    EXPECT_EQ(box.BoxIcon, Icon::Critical);
    EXPECT_EQ(box.BoxButtons, Buttons::AbortRetryIgnore);
    EXPECT_EQ(box.DefaultAnswer, Answer::Retry);
  }
}

}  // namespace
}  // namespace lomaris

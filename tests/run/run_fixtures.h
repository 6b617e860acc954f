#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "fake_monitor.h"
#include "run/exchange_writer.h"
#include "run/run_desk.h"
#include "support/fake_ports.h"
#include "support/fake_run_ports.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {

/// Its file dialog moves the current directory, as file dialogs do.
class MovingUi : public ScriptedUi {
  std::vector<std::string> AskFile(const FileDialog& dialog) override {
    std::filesystem::current_path("/");
    return ScriptedUi::AskFile(dialog);
  }
};

/// A link whose model the test plays, on a network of three cross sections.
class LinkTest : public testing::Test {
 protected:
  LinkTest() {
    hydro.BranchCount = 2;
    hydro.Branches[1].XSects.Resize(2);
    hydro.Branches[2].XSects.Resize(1);
    hydro.Branches[1].XSects[2].Name = "Mouth";
    monitor.Title = "TavreskH Progress";
    reply.Open();
    answers = std::make_unique<ReplyReader>("veskin.tmp");
    writer = std::make_unique<ModelFileWriter>("veskout.tmp", 3);
  }

  void Poll() { PollModel({state, model, reply, hydro, monitor, ui, clock, processes}); }

  void SendUpdate(float percent, float first = 1) {
    writer->SetSize(3, 2);
    writer->SetFormat("^Section|>Flow |Depth, ft");
    writer->SetUpdate("05/01/97 12:00", percent);
    writer->SetColumn(1, std::vector<float>{first, 2, 3});
    writer->SetColumn(2, std::vector<float>{-4, -5, -6});
    writer->SetCommand("update");
    Poll();
  }

  /// Texts of a dialogue, then its command, as the model writes them; gives the answer.
  std::string Send(std::string_view command, std::vector<std::string> texts, int type = 0) {
    answers->Blank();
    texts.resize(3);
    for (int i = 0; i < 3; ++i) {
      writer->SetText(kUpdateRecord + i, texts[static_cast<std::size_t>(i)]);
    }
    if (type != 0 || command == "MSGBOX") writer->SetType(type);
    writer->SetCommand(command);
    Poll();
    return answers->Read();
  }

  TempFolder folder;
  ProgressState state;
  ModelFile model{folder.Path("veskout.tmp")};
  ReplyFile reply{folder.Path("veskin.tmp")};
  HydroInput hydro;
  FakeMonitor monitor;
  MovingUi ui;
  FakeClock clock;
  FakeProcesses processes;
  std::unique_ptr<ReplyReader> answers;
  std::unique_ptr<ModelFileWriter> writer;
};

/// A folder with the model programs, and a desk whose options windows press their button at once.
class DeskOfRuns : public testing::Test, protected RunView {
 protected:
  DeskOfRuns() {
    for (const char* name :
         {"bin/TavreskH.exe", "bin/tavreskq.EXE", "bin/veskh.bmp", "a/\xC3\xBC.prj", "a/x.hnp"}) {
      folder.Write(name, "");
    }
    folder.Write("bin/run.ctl", "an older and longer line\r\n");
    folder.Write("bin/veskout.tmp", "left over");
    project.FileName = "a/\xC3\xBC.prj";
    project.HydroFile = "x.hnp";
    processes.OnTurn = [this](int turn) { return plays && PlayModel(turn); };
  }

  /// A model that sends an update, and perhaps an abort with its last breath.
  bool PlayModel(int turn) {
    if (turn == 0) {
      control = folder.Read("bin/run.ctl");
      writer = std::make_unique<ModelFileWriter>(folder.Path("bin/veskout.tmp"), 0);
      writer->SetSize(0, 1);
      writer->SetText(kFormatRecord, "");
      writer->SetUpdate("now", 1);
      writer->SetCommand("UPDATE");
    } else if (abortText != nullptr && turn == 4) {
      writer->SetText(kUpdateRecord, abortText);
      writer->SetText(kText2Record, "");
      writer->SetType(-1);
      writer->SetCommand("MSGBOX");
    }
    return turn < 4;
  }

  bool SaveProject() override { return saves; }
  void SaveForm() override { log.push_back("SaveForm"); }
  void ShowOptions(OptionsWindow window) override {
    log.push_back("options");
    if (window == OptionsWindow::Hydro) desk.RunHydro({});
    if (window == OptionsWindow::Qual) desk.RunQual({});
    if (window == OptionsWindow::Both) desk.RunBoth({});
  }
  /// While a model runs the menu can be reached.
  void HideOptions() override {
    desk.RunItem(kRunPostProcessor);
    ui.Answers.push_front(Answer::No);  // it is not ended by force
    desk.RunItem(kRunQual);
  }
  void UnloadOptions() override { log.push_back("unload options"); }
  MonitorView& LoadMonitor(const std::string& caption) override {
    log.push_back(caption);
    monitor = FakeMonitor();
    return monitor;
  }
  void UnloadMonitor() override { log.push_back("unload monitor"); }
  void ShowMonitor() override { log.push_back("show monitor"); }
  void OfferClose() override { log.push_back("Close"); }
  void ShowSplash(const std::string& file) override { log.push_back(file); }

  TempFolder folder;
  ProjectData project;
  ScriptedUi ui;
  FakeSettings settings;
  FakeProcesses processes;
  FakeClock clock;
  FakeWorkbench workbench;
  FakeMonitor monitor;
  RunDesk desk{{project, ui, settings, processes, clock, workbench, folder.Path("bin")}, *this};
  std::unique_ptr<ModelFileWriter> writer;
  std::vector<std::string> log;
  std::string control;
  const std::string picture = folder.Path("bin/veskh.bmp");
  const char* abortText = nullptr;
  bool plays = true;
  bool saves = true;
};

}  // namespace lomaris

#pragma once

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_ports.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "workspace/project_desk.h"

namespace lomaris {

class FakeView : public ProjectView {
 public:
  ProjectForm Shown;
  bool ProjectOpen = false;
  std::string Title = "Lomaris";
  std::vector<std::string> RecentNames;
  std::size_t Focus = kFileSlotCount;

  bool MayLeaveProject() override { return true; }
  ProjectForm Form() const override { return Shown; }
  void ShowForm(const ProjectForm& form, bool projectOpen) override {
    Shown = form;
    ProjectOpen = projectOpen;
  }
  void ShowFilesTab() override {}
  void FocusSlot(std::size_t slot) override { Focus = slot; }
  std::string Caption() const override { return Title; }
  void SetCaption(const std::string& caption) override { Title = caption; }
  void ShowRecent(const std::vector<std::string>& names) override { RecentNames = names; }
};

/// A project window without a window, in a folder of its own.
class DeskTest : public testing::Test {
 protected:
  /// A small project file; more lines may follow.
  std::string WriteProject(const std::string& name, const std::string& hydroFile) const {
    return folder.Write(name, "HYDRODYNAMIC_INPUT_FILE: " + hydroFile +
                                  "\r\nPROJECT_DESCRIPTION:\r\n" + name + "\r\n");
  }

  TempFolder folder;
  ScriptedUi ui;
  FakeSettings settings;
  FakeShell shell;
  FakeWorkbench workbench;
  FakeView view;
  ProjectData project;
  HydroInput hydro;
  Tables tables = InitTables(ui);
  ProjectDesk desk{{project, hydro, tables, ui, settings, shell, workbench}, view};
};

}  // namespace lomaris

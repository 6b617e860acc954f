#include "workspace/project_form.h"

#include <gmock/gmock.h>

#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

using testing::ElementsAre;

TEST(BoundaryRow, KeepsAPathWithBracketsAndBlanks) {
  const BoundaryRow rows[] = {{"a.bcf", true, 1},
                              {"C:\\Program Files (x86)\\flow.bcf", false, 20},
                              {"odd     (US Branch 3).bcf", false, 7}};
  for (const BoundaryRow& row : rows) {
    EXPECT_EQ(ParseBoundaryRow(BoundaryRowText(row)), row) << row.FileName;
  }
  EXPECT_EQ(BoundaryRowText(rows[0]), "a.bcf     (US Branch 1)");
  EXPECT_EQ(BoundaryRowText(rows[1]), "C:\\Program Files (x86)\\flow.bcf     (DS Branch 20)");
  EXPECT_THROW(ParseBoundaryRow("a.bcf"), RuntimeError);
}

ProjectData FullProject() {
  ProjectData project;
  project.FileName = "p.prj";
  project.Description = "Two\r\nlines";
  for (const FileSlot& slot : kFileSlots) {
    if (!slot.IsList()) project.*slot.Name = std::string(slot.Kind) + " file";
  }
  project.BCCountH = project.BCCountQ = kMostBranches;
  for (int branch = 1; branch <= kMostBranches; ++branch) {
    project.BCFilesH[branch] = {"u" + std::to_string(branch), "d" + std::to_string(branch)};
  }
  project.BCFilesQ[kMostBranches].Downstream = "last";
  project.MetCount = 2;
  project.MetFiles[1] = "east.met";
  project.MetFiles[2] = "west.met";
  return project;
}

TEST(ProjectForm, GivesTheRecordBackThatItShows) {
  ScriptedUi ui;
  const ProjectData project = FullProject();
  const ProjectForm form = FormOf(project, ui);
  EXPECT_EQ(form.Lists[kBoundarySlotH].Rows.size(), 2u * kMostBranches);
  EXPECT_EQ(form.Lists[kBoundarySlotH].Rows[1], "d1     (DS Branch 1)");
  EXPECT_THAT(form.Lists[kBoundarySlotQ].Rows, ElementsAre("last     (DS Branch 20)"));
  EXPECT_THAT(form.Lists[kMetSlot].Rows, ElementsAre("east.met", "west.met"));
  EXPECT_EQ(form.Lists[kMetSlot].Selected, 0);

  ProjectData stored;
  stored.FileName = project.FileName;
  StoreForm(form, stored);
  EXPECT_EQ(stored, project);
  EXPECT_TRUE(ui.Messages.empty());
}

TEST(ProjectForm, LeavesOutABranchThatNoFileHolds) {
  ProjectForm form;
  form.Lists[kBoundarySlotQ].Rows = {"a.bcf     (DS Branch 2)", "x.bcf     (US Branch 21)"};
  ProjectData project = FullProject();
  StoreForm(form, project);
  EXPECT_EQ(project.BCCountQ, 2);
  EXPECT_EQ(project.BCFilesQ[2].Downstream, "a.bcf");
}

TEST(ProjectForm, TellsOfOtherFilesThatAreGone) {
  const TempFolder folder;
  folder.Write("notes.txt", "");
  ScriptedUi ui;
  ProjectData project;
  project.OtherCount = 3;
  project.OtherFiles[1] = "gone.doc";
  project.OtherFiles[2] = "notes.txt";
  const ProjectForm form = FormOf(project, ui);
  EXPECT_THAT(form.OtherFiles, ElementsAre("notes.txt"));
  ASSERT_EQ(ui.Messages.size(), 2u);
  EXPECT_EQ(ui.Messages[0].Text,
            "File named gone.doc not found; it has been deleted from the list.");
  EXPECT_EQ(ui.Messages[1].Text, "File named  not found; it has been deleted from the list.");
}

TEST(ProjectForm, ListsAnOtherFileOnceAndFiftyAtMost) {
  ProjectForm form;
  EXPECT_EQ(AddOtherFile(form, std::string_view("A/Notes.txt\0rest", 16)), OtherFileEnd::Added);
  EXPECT_EQ(AddOtherFile(form, "a/NOTES.TXT"), OtherFileEnd::IsThere);
  EXPECT_THAT(form.OtherFiles, ElementsAre("A/Notes.txt"));
  for (int i = 1; i < 60; ++i) AddOtherFile(form, std::to_string(i));
  EXPECT_EQ(form.OtherFiles.size(), 50u);
}

}  // namespace
}  // namespace lomaris

#include <gtest/gtest.h>

#include "core/files.h"
#include "model/hnp_file.h"
#include "model/prj_file.h"
#include "model/qnp_file.h"
#include "model/xsg_file.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

/// The example in memory.
struct Model {
  ProjectData Project;
  HydroInput Hydro;
  XSectLibrary Library;
  QualInput Qual;

  bool Load(const std::string& name, Ui& ui) {
    if (name.ends_with(".prj")) return LoadPRJFile(Project, ui, name);
    if (name.ends_with(".hnp")) return LoadHNPFile(Hydro, Project, ui, name);
    if (name.ends_with(".qnp")) return LoadQNPFile(Qual, Project, Hydro, ui, name);
    return LoadXSGFile(Library, Project, ui, name);
  }
  bool operator==(const Model&) const = default;
};

TEST(Examples, AreSavedAsTheyWereAndReadOrToldWhereverCutOff) {
  const TempFolder folder;
  ScriptedUi ui;
  Model model;
  std::string texts;
  for (const std::string name :
       {"three_branches.prj", "corvane_river.hnp", "corvane_shapes.xsg", "corvane_quality.qnp"}) {
    const std::string text = ReadWholeFile(LOMARIS_EXAMPLES "/three_branches/" + name);
    folder.Write(name, text);
    ASSERT_TRUE(model.Load(name, ui));
    for (std::size_t size = text.size() - 1; size > 0; --size) {
      std::filesystem::resize_file(name, size);
      ScriptedUi cutUi;
      cutUi.Answers.assign(20, Answer::Abort);
      Model cut = model;
      EXPECT_TRUE(cut.Load(name, cutUi) || (cut == model && !cutUi.Messages.empty())) << size;
    }
    texts += text;
  }
  EXPECT_TRUE(SavePRJFile(model.Project, ui, "a.prj"));
  EXPECT_TRUE(SaveHNPFile(model.Hydro, model.Project, ui, "a.hnp"));
  EXPECT_TRUE(SaveXSGFile(model.Library, model.Project, ui, "a.xsg"));
  EXPECT_TRUE(SaveQNPFile(model.Qual, model.Project, ui, "a.qnp"));
  EXPECT_EQ(
      folder.Read("a.prj") + folder.Read("a.hnp") + folder.Read("a.xsg") + folder.Read("a.qnp"),
      texts);
  EXPECT_TRUE(ui.Messages.empty() && !model.Project.Dirty);
}

}  // namespace
}  // namespace lomaris

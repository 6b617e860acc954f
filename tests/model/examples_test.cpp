#include <gtest/gtest.h>

#include "core/files.h"
#include "model/hnp_file.h"
#include "model/prj_file.h"
#include "model/xsg_file.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

TEST(Examples, AnUneditedSaveGivesTheSameBytes) {
  const std::string examples = LOMARIS_EXAMPLES "/three_branches/";
  const TempFolder folder;
  ScriptedUi ui;
  ProjectData project;
  HydroInput hydro;
  XSectLibrary library;
  ASSERT_TRUE(LoadPRJFile(project, ui, examples + "three_branches.prj"));
  const std::string hydroFile = project.HydroFile;
  const std::string libraryFile = project.XSGFileH;
  ASSERT_TRUE(LoadHNPFile(hydro, project, ui, hydroFile));
  ASSERT_TRUE(LoadXSGFile(library, project, ui, libraryFile));
  ASSERT_GT(hydro.XSectCount, 0);
  ASSERT_GT(library.XSectCount, 0);

  ASSERT_TRUE(SavePRJFile(project, ui, folder.Path("a.prj")));
  ASSERT_TRUE(SaveHNPFile(hydro, project, ui, folder.Path("a.hnp")));
  ASSERT_TRUE(SaveXSGFile(library, project, ui, folder.Path("a.xsg")));
  EXPECT_EQ(folder.Read("a.prj"), ReadWholeFile(examples + "three_branches.prj"));
  EXPECT_EQ(folder.Read("a.hnp"), ReadWholeFile(examples + hydroFile));
  EXPECT_EQ(folder.Read("a.xsg"), ReadWholeFile(examples + libraryFile));
  EXPECT_FALSE(project.Dirty);
  EXPECT_TRUE(ui.Messages.empty());
}

}  // namespace
}  // namespace lomaris

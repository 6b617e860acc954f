#include <gtest/gtest.h>

#include "auxiliary/aux_file.h"
#include "core/files.h"
#include "model/hnp_file.h"
#include "model/prj_file.h"
#include "support/fake_aux_window.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

TEST(ExampleYear, SuitsItsNetworkAndIsSavedAsItWas) {
  const TempFolder folder;
  std::filesystem::copy(LOMARIS_EXAMPLES "/three_branches", folder.Path("."));
  ScriptedUi ui;
  ProjectData project;
  HydroInput hydro;
  ASSERT_TRUE(LoadPRJFile(project, ui, "three_branches.prj"));
  ASSERT_TRUE(LoadHNPFile(hydro, project, ui, project.HydroFile));
  Tables tables = InitTables(ui);
  FakeAuxWindow window;
  for (const std::string& name :
       {project.LatFileH, project.WitFileH, project.LatFileQ, project.PowFileQ}) {
    AuxData aux;
    aux.FileName = name;
    const AuxSurroundings around = {hydro, project, tables, ui, &window};
    ASSERT_TRUE(LoadAUXFile(aux, around)) << name;
    EXPECT_FALSE(aux.Modified);
    aux.FileName = "saved." + name.substr(name.size() - 3);
    ASSERT_TRUE(SaveAUXFile(aux, around));
    EXPECT_TRUE(folder.Read(aux.FileName) == folder.Read(name)) << name;
  }
  EXPECT_TRUE(ui.Messages.empty()) << ui.LastMessage();
}

}  // namespace
}  // namespace lomaris

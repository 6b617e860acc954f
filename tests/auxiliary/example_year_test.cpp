#include <map>

#include <gtest/gtest.h>

#include "auxiliary/aux_file.h"
#include "auxiliary/cls_bmd.h"
#include "auxiliary/xsect_names.h"
#include "core/files.h"
#include "model/hnp_file.h"
#include "model/prj_file.h"
#include "support/fake_aux_window.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {
namespace {

/// The example's project with its network, in a folder of its own.
class ExampleYear : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::copy(LOMARIS_EXAMPLES "/three_branches", folder_.Path("."));
    ASSERT_TRUE(LoadPRJFile(project_, ui_, "three_branches.prj"));
    ASSERT_TRUE(LoadHNPFile(network_, project_, ui_, project_.HydroFile));
  }

  /// The auxiliary files that the project names, with their boundary types.
  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const std::string& name :
         {project_.LatFileH, project_.WitFileH, project_.LatFileQ, project_.PowFileQ}) {
      files[name];
    }
    for (int i = 1; i <= project_.MetCount; ++i) files[project_.MetFiles[i]];
    for (const auto* ends : {&project_.BCFilesH, &project_.BCFilesQ}) {
      for (int i = 1; i <= network_.BranchCount; ++i) {
        files[(*ends)[i].Upstream] = network_.Branches[i].USType;
        files[(*ends)[i].Downstream] = network_.Branches[i].DSType;
      }
    }
    files.erase("");
    return files;
  }

  void IsSavedAsItWas(const std::string& name) const {
    EXPECT_TRUE(folder_.Read(name) == ReadWholeFile(LOMARIS_EXAMPLES "/three_branches/" + name))
        << name;
  }

  TempFolder folder_;
  ScriptedUi ui_;
  ProjectData project_;
  HydroInput network_;
  Tables tables_ = InitTables(ui_);
  FakeAuxWindow window_;
};

TEST_F(ExampleYear, SuitsItsNetworkAndIsSavedAsItWas) {
  const std::map<std::string, std::string> files = Files();
  EXPECT_EQ(files.size(), 8u);
  for (const auto& [name, boundaryType] : files) {
    AuxData aux;
    aux.FileName = name;
    aux.BoundaryType = boundaryType;
    ASSERT_TRUE(LoadAUXFile(aux, {network_, project_, tables_, ui_})) << name;
    ASSERT_TRUE(LoadAUXFile(aux, {network_, project_, tables_, ui_, &window_})) << name;
    EXPECT_FALSE(aux.Modified);
    EXPECT_TRUE(aux.IsRating ||
                (aux.Times[1] <= network_.StartDate && aux.Times[aux.NumTimes] >= network_.EndDate))
        << name;
    if (boundaryType.empty()) TellStaleNodes(aux, network_, ui_);
    std::filesystem::rename(name, "before");
    ASSERT_TRUE(SaveAUXFile(aux, {network_, project_, tables_, ui_, &window_}));
    IsSavedAsItWas(name);
  }
  EXPECT_TRUE(ui_.Messages.empty()) << ui_.LastMessage();
}

TEST_F(ExampleYear, HasResultsAtTheCrossSectionsOfItsNetwork) {
  const std::string name = "corvane_april.bmd";
  clsBMD bmd(ui_);
  ASSERT_TRUE(bmd.ReadBMD(name, false));
  const std::vector<std::string_view> nodes = NodeNames(network_);
  ASSERT_EQ(bmd.NumSegments(), std::ssize(nodes));
  for (std::int32_t i = 1; i <= bmd.NumSegments(); ++i) {
    EXPECT_EQ(bmd.SegName(i), nodes[static_cast<std::size_t>(i) - 1]);
  }
  EXPECT_EQ(bmd.Time(1), network_.StartDate);
  std::filesystem::remove(name);
  ASSERT_TRUE(bmd.WriteBMD(name));
  IsSavedAsItWas(name);

  AuxData aux;
  aux.FileName = name;
  EXPECT_TRUE(LoadAUXFile(aux, {network_, project_, tables_, ui_, &window_}));
  EXPECT_TRUE(ui_.Messages.empty()) << ui_.LastMessage();
}

}  // namespace
}  // namespace lomaris

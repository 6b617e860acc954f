#include "editors/bed_profile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/xsect_sheet.h"
#include "support/scripted_ui.h"

namespace lomaris {
namespace {

TEST(BedProfile, AddsUpTheDistancesAndLeavesGapsWhereThereAreNoNumbers) {
  ScriptedUi ui;
  BranchRec branch;
  branch.XSectCount = 4;
  branch.XSects = BoundedArray<XSectRec>(1, 4);
  for (XSectRec& xsect : branch.XSects) {
    xsect = {.Name = "a", .Lookup = "b", .Length = 500, .Depth = 2.5F, .Invert = 10};
  }
  Sheet sheet;
  SetUpXSects(sheet, ui);
  EXPECT_TRUE(BedProfile(sheet).empty());
  FillXSects(sheet, branch);
  EXPECT_EQ(sheet.TextMatrix(0, kLengthCol), "Downstream\nDist. (ft)");
  sheet.SetTextMatrix(2, kInvertCol, "?");
  sheet.SetTextMatrix(2, kLengthCol, "250.5");
  sheet.SetTextMatrix(3, kDepthCol, "");
  sheet.SetTextMatrix(3, kLengthCol, "-7");
  const ProfilePoint expected[] = {
      {1, 0, 10, 12.5}, {2, 500, {}, {}}, {3, 750.5, 10, {}}, {4, 750.5, 10, 12.5}};
  EXPECT_THAT(BedProfile(sheet), testing::ElementsAreArray(expected));
}

}  // namespace
}  // namespace lomaris

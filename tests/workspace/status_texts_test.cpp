#include "workspace/status_texts.h"

#include <gtest/gtest.h>

namespace lomaris {
namespace {

TEST(StatusTexts, AreFoundByTheWholePath) {
  EXPECT_EQ(StatusText("Help|Contents  Index"), "Display the contents page of the help system");
  EXPECT_EQ(StatusText("File|C:\\Rivers\\Upper.PRJ"), "Open this previously saved Project file");
  EXPECT_EQ(StatusText("File|Output"), "");
  EXPECT_EQ(StatusText("Close"), "");
}

TEST(StatusTexts, OfSaveAsAndSaveAndCloseStandCrossed) {
  EXPECT_EQ(StatusText("File|Save As..."),
            "Save current document, overwriting file, and close form");
  EXPECT_EQ(StatusText("File|Save and Close"), "Save current document and provide a new name");
}

}  // namespace
}  // namespace lomaris

// Relative, full and resolved paths.

#include "xml/paths.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {
namespace {

class Paths : public testing::Test {
 protected:
  static void SetUpTestSuite() { CDMDOMParser::InitializePlatform(); }
};

TEST_F(Paths, WithoutASlashInFrontIsRelative) {
  EXPECT_TRUE(isRelativePath("a.xsd"));
  EXPECT_TRUE(isRelativePath("./a.xsd"));
  EXPECT_TRUE(isRelativePath("../sub/a.xsd"));
  EXPECT_FALSE(isRelativePath("/s/a.xsd"));
}

TEST_F(Paths, PathIsResolvedInTheFolderOfItsBase) {
  EXPECT_EQ(weavePaths("/s/main.xsd", "a.xsd"), "/s/a.xsd");
  EXPECT_EQ(weavePaths("/s/main.xsd", "sub/a.xsd"), "/s/sub/a.xsd");
  EXPECT_EQ(weavePaths("sub/main.xsd", "a.xsd"), "sub/a.xsd");
}

TEST_F(Paths, DotsInAResolvedPathAreRemoved) {
  EXPECT_EQ(weavePaths("/s/t/main.xsd", "../a.xsd"), "/s/a.xsd");
  EXPECT_EQ(weavePaths("/s/t/main.xsd", "./a.xsd"), "/s/t/a.xsd");
  EXPECT_EQ(weavePaths("/s/t/main.xsd", "../../u/a.xsd"), "/u/a.xsd");
}

TEST_F(Paths, BaseWithoutAFolderChangesNothing) {
  EXPECT_EQ(weavePaths("", "a.xsd"), "a.xsd");
  EXPECT_EQ(weavePaths("main.xsd", "a.xsd"), "a.xsd");
}

TEST_F(Paths, FullPathOfAFileInTheWorkingDirectory) {
  WorkingFolder folder;
  folder.write("a.xsd", "");
  EXPECT_EQ(getFullPath("a.xsd"), folder.path("a.xsd"));
  EXPECT_EQ(getFullPath("./a.xsd"), folder.path("a.xsd"));
}

TEST_F(Paths, FullPathOfAMissingFileIsJoinedToTheWorkingDirectory) {
  WorkingFolder folder;
  EXPECT_EQ(getFullPath("missing.xsd"), folder.path("missing.xsd"));
}

}  // namespace
}  // namespace fdmorph

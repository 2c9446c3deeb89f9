// The search for copy members.

#include "preprocess/copy_search.h"

#include <gtest/gtest.h>

#include "support/memory_tree.h"

namespace fdmorph::compiler {
namespace {

class CopySearchTest : public testing::Test {
 protected:
  void add(std::string const& path) { tree.files[path] = "x"; }

  /// The path of the member that a COPY statement in the main source includes.
  std::string find(std::string const& member, std::string const& library = {},
                   CopyRules const& rules = {}) {
    Sources sources(tree);
    CopySearch search(sources, rules, "src/main.cbl");
    SourceFile const* file = search.find(member, library, "src/main.cbl");
    return file == nullptr ? "" : file->path;
  }

  MemoryTree tree;
};

TEST_F(CopySearchTest, TriesTheNameInThreeSpellingsWithEachExtension) {
  add("src/PART.cbl");
  add("src/part");
  EXPECT_EQ(find("Part"), "src/part");  // lower case is tried before upper case
  add("src/Part.COB");
  EXPECT_EQ(find("Part"), "src/Part.COB");
}

TEST_F(CopySearchTest, SearchesTheFolderOfTheSourceBeforeThoseOfTheRules) {
  add("lib/A.cpy");
  CopyRules rules;
  rules.folders = {"none", "lib/"};
  EXPECT_EQ(find("A", "", rules), "lib/A.cpy");
  add("src/A.cbl");
  EXPECT_EQ(find("A", "", rules), "src/A.cbl");
}

TEST_F(CopySearchTest, SearchesALibraryBeforeTheFolderAroundIt) {
  add("src/A.cpy");
  EXPECT_EQ(find("A", "LIB"), "src/A.cpy");
  add("src/lib/A.cpy");
  EXPECT_EQ(find("A", "LIB"), "src/lib/A.cpy");
}

TEST_F(CopySearchTest, TakesTheSourceOnlyIfThereIsNoOtherFile) {
  add("src/main.cbl");
  EXPECT_EQ(find("MAIN"), "src/main.cbl");
  add("src/main.cob");
  EXPECT_EQ(find("MAIN"), "src/main.cob");
  tree.files.erase("src/main.cob");
  add("lib/MAIN.cpy");
  CopyRules rules;
  rules.folders = {"lib"};
  EXPECT_EQ(find("MAIN", "", rules), "lib/MAIN.cpy");
}

TEST_F(CopySearchTest, ListsTheFoldersSearched) {
  CopyRules rules;
  rules.folders = {"lib/", "src", "", "/"};
  Sources sources(tree);
  CopySearch search(sources, rules, "src/main.cbl");
  EXPECT_EQ(search.foldersSearched("copy/part.cpy"),
            (std::vector<std::string>{"src", "copy", "lib", ".", "/"}));
}

}  // namespace
}  // namespace fdmorph::compiler

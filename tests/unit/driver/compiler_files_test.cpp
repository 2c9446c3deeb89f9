// What the compiler is given, and what is removed after it.

#include "driver/compiler_files.h"

#include <gtest/gtest.h>

#include "support/captured_console.h"
#include "support/temporary_folder.h"

namespace fdmorph {
namespace {

class CompilerFilesTest : public ConsoleTest {
 protected:
  WorkingFolder folder;
};

TEST_F(CompilerFilesTest, ProgramIsCompiledWhereItIs) {
  folder.write("a.cbl", "text");
  CompilerFiles const files("a.cbl", "a", false);
  EXPECT_EQ(files.source(), "a.cbl");
  EXPECT_EQ(files.dictionary(), "a.xml");
}

TEST_F(CompilerFilesTest, CopybookIsCompiledAsACopy) {
  folder.write("a.cpy", "text");
  CompilerFiles const files("a.cpy", "a", true);
  EXPECT_EQ(folder.read(files.source()), "text\n");
  EXPECT_TRUE(files.dictionary().starts_with("./file")) << files.dictionary();
}

TEST_F(CompilerFilesTest, ProgramWithAFileInPlaceOfItsDictionaryIsCompiledAsACopy) {
  folder.write("a.cbl", "text");
  folder.write("a.xml", "mine");
  CompilerFiles const files("a.cbl", "a", false);
  EXPECT_NE(files.source(), "a.cbl");
}

TEST_F(CompilerFilesTest, ProgramWithALinkInPlaceOfItsDictionaryIsCompiledAsACopy) {
  folder.write("a.cbl", "text");
  std::filesystem::create_symlink("nowhere", "a.xml");
  CompilerFiles files("a.cbl", "a", false);
  EXPECT_NE(files.source(), "a.cbl");
  files.removeByProducts();
  EXPECT_TRUE(std::filesystem::is_symlink("a.xml"));
}

TEST_F(CompilerFilesTest, FailedCopyLeavesNothing) {
  CompilerFiles const files("missing.cpy", "missing", true);
  EXPECT_TRUE(files.isReady());
  EXPECT_FALSE(folder.has(files.source()));
  EXPECT_EQ(captured.out(),
            "Error : Unable to copy file contents of missing.cpy to " + files.source() + "\n");
}

TEST_F(CompilerFilesTest, FolderIsNoCopybook) {
  std::filesystem::create_directory("a.cpy");
  CompilerFiles const files("a.cpy", "a", true);
  EXPECT_FALSE(folder.has(files.source()));
  EXPECT_EQ(captured.out(),
            "Error : Unable to copy file contents of a.cpy to " + files.source() + "\n");
}

TEST_F(CompilerFilesTest, ByProductsAreRemovedAndTheSourceStays) {
  folder.write("a.cbl", "text");
  CompilerFiles files("a.cbl", "a", false);
  for (char const* name : {"a.xml", "a.dbi", "a.int"}) folder.write(name, "written");
  files.removeByProducts();
  for (char const* name : {"a.xml", "a.dbi", "a.int"}) EXPECT_FALSE(folder.has(name)) << name;
  EXPECT_TRUE(folder.has("a.cbl"));
}

TEST_F(CompilerFilesTest, TemporaryCopyIsRemovedWithItsByProducts) {
  folder.write("a.cpy", "text");
  CompilerFiles files("a.cpy", "a", true);
  folder.write(files.dictionary(), "written");
  files.removeByProducts();
  EXPECT_FALSE(folder.has(files.source()));
  EXPECT_FALSE(folder.has(files.dictionary()));
  EXPECT_TRUE(folder.has("a.cpy"));
}

// A name in the list may be that of an output by then.
TEST_F(CompilerFilesTest, AfterTheRemovalNothingIsPending) {
  folder.write("a.cbl", "text");
  CompilerFiles files("a.cbl", "a", false);
  files.removeByProducts();
  folder.write("a.xml", "output");
  removePendingFiles();
  EXPECT_TRUE(folder.has("a.xml"));
}

TEST_F(CompilerFilesTest, EarlyEndRemovesTheCopyAndWhatTheCompilerWrote) {
  folder.write("a.cpy", "text");
  CompilerFiles const files("a.cpy", "a", true);
  folder.write(files.dictionary(), "written");
  removePendingFiles();
  EXPECT_FALSE(folder.has(files.source()));
  EXPECT_FALSE(folder.has(files.dictionary()));
}

TEST_F(CompilerFilesTest, EarlyEndLeavesOlderFiles) {
  folder.write("a.cbl", "text");
  folder.write("a.int", "older");
  CompilerFiles const files("a.cbl", "a", false);
  folder.write("a.dbi", "written");
  removePendingFiles();
  EXPECT_TRUE(folder.has("a.int"));
  EXPECT_FALSE(folder.has("a.dbi"));
}

}  // namespace
}  // namespace fdmorph

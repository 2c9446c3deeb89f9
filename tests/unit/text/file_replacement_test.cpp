// New versions of files: when they take the name, and what they keep.

#include "text/file_replacement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "support/temporary_folder.h"

namespace fdmorph {
namespace {

using Start = FileReplacement::Start;

class Replacement : public testing::Test {
 protected:
  // The number of files in the folder, those with a leading dot included.
  long fileCount() const {
    std::filesystem::directory_iterator files(folder.path(""));
    return std::distance(begin(files), end(files));
  }

  mode_t modeOf(std::string const& name) const {
    struct stat state {};
    EXPECT_EQ(stat(folder.path(name).c_str(), &state), 0);
    return state.st_mode & 07777;
  }

  TemporaryFolder folder;
};

TEST_F(Replacement, TakesTheNameWhenItIsComplete) {
  folder.write("a", "old");
  FileReplacement file;
  ASSERT_EQ(file.begin(folder.path("a")), Start::opened);
  EXPECT_TRUE(file.write("new"));
  EXPECT_EQ(folder.read("a"), "old");
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(folder.read("a"), "new");
  EXPECT_EQ(fileCount(), 1);
}

TEST_F(Replacement, IsDroppedWithoutTheEnd) {
  folder.write("a", "old");
  {
    FileReplacement file;
    ASSERT_EQ(file.begin(folder.path("a")), Start::opened);
    EXPECT_TRUE(file.write("new"));
    EXPECT_EQ(fileCount(), 2);
  }
  EXPECT_EQ(folder.read("a"), "old");
  EXPECT_EQ(fileCount(), 1);
}

TEST_F(Replacement, OfNoFileLeavesNone) {
  {
    FileReplacement file;
    ASSERT_EQ(file.begin(folder.path("a")), Start::opened);
  }
  EXPECT_EQ(fileCount(), 0);
}

TEST_F(Replacement, HasTheModeOfTheOldFile) {
  for (mode_t mode : {0600U, 0644U, 0666U, 04755U}) {
    folder.write("a", "old");
    ASSERT_EQ(chmod(folder.path("a").c_str(), mode), 0);
    EXPECT_EQ(replaceFile(folder.path("a"), "new"), std::nullopt);
    EXPECT_EQ(modeOf("a"), mode);
  }
}

TEST_F(Replacement, OfNoFileHasTheModeOfTheMask) {
  mode_t const before = umask(027);
  EXPECT_EQ(replaceFile(folder.path("a"), "new"), std::nullopt);
  umask(before);
  EXPECT_EQ(modeOf("a"), 0640U);
}

TEST_F(Replacement, LeavesALinkAndReplacesItsFile) {
  std::filesystem::create_directory(folder.path("sub"));
  folder.write("sub/a", "old");
  std::filesystem::create_symlink("sub/a", folder.path("second"));
  std::filesystem::create_symlink(folder.path("second"), folder.path("first"));
  EXPECT_EQ(replaceFile(folder.path("first"), "new"), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("first")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("second")));
  EXPECT_EQ(folder.read("sub/a"), "new");
}

TEST_F(Replacement, CreatesTheFileOfALinkThatLeadsNowhere) {
  std::filesystem::create_directory(folder.path("sub"));
  std::filesystem::create_symlink("sub/a", folder.path("link"));
  EXPECT_EQ(replaceFile(folder.path("link"), "new"), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link")));
  EXPECT_EQ(folder.read("sub/a"), "new");
}

TEST_F(Replacement, GivesUpOnLinksInACircle) {
  std::filesystem::create_symlink("b", folder.path("a"));
  std::filesystem::create_symlink("a", folder.path("b"));
  FileReplacement file;
  EXPECT_EQ(file.begin(folder.path("a")), Start::refused);
  EXPECT_EQ(fileCount(), 2);
}

TEST_F(Replacement, WritesDevicesDirectly) {
  FileReplacement file;
  ASSERT_EQ(file.begin("/dev/null"), Start::opened);
  EXPECT_TRUE(file.write("text"));
  EXPECT_TRUE(file.commit());
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
  EXPECT_EQ(replaceFile("/dev/full", "text"), "No space left on device");
}

// The name leads to a regular file, but only by way of the open descriptor.
TEST_F(Replacement, WritesOpenDescriptorsDirectly) {
  std::string const name = folder.write("a", "old");
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(stat(name.c_str(), &before), 0);
  int const file = open(name.c_str(), O_WRONLY);
  EXPECT_EQ(replaceFile("/dev/fd/" + std::to_string(file), "new"), std::nullopt);
  close(file);
  ASSERT_EQ(stat(name.c_str(), &after), 0);
  EXPECT_EQ(folder.read("a"), "new");
  EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST_F(Replacement, IsRefusedWhereAFileCannotBeOpened) {
  std::string const tooLong(300, 'x');
  for (std::string const& name : {std::string("none/a"), std::string("."), std::string("new/"),
                                  std::string("file/a"), tooLong}) {
    folder.write("file", "");
    FileReplacement file;
    EXPECT_EQ(file.begin(folder.path(name)), Start::refused) << name;
    EXPECT_EQ(fileCount(), 1) << name;
  }
}

TEST_F(Replacement, TakesANameOfTheMaximumLength) {
  std::string const name(255, 'x');
  EXPECT_EQ(replaceFile(folder.path(name), "new"), std::nullopt);
  EXPECT_EQ(folder.read(name), "new");
}

TEST_F(Replacement, SaysWhyItFails) {
  EXPECT_EQ(replaceFile(folder.path("none/a"), "new"), "No such file or directory");
  EXPECT_EQ(replaceFile(folder.path("."), "new"), "Is a directory");
}

TEST(FolderOf, EndsWithItsSlash) {
  EXPECT_EQ(folderOf("a/b/c.txt"), "a/b/");
  EXPECT_EQ(folderOf("/c.txt"), "/");
  EXPECT_EQ(folderOf("c.txt"), "");
}

}  // namespace
}  // namespace fdmorph

// Which files go when a process ends early.

#include "text/pending_files.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace fdmorph {
namespace {

class Pending : public testing::Test {
 protected:
  TemporaryFolder folder;
};

TEST_F(Pending, NewFileIsRemoved) {
  PendingFile const file(folder.path("a"));
  EXPECT_FALSE(file.isNew());
  folder.write("a", "new");
  EXPECT_TRUE(file.isNew());
  removePendingFiles();
  EXPECT_FALSE(folder.has("a"));
}

TEST_F(Pending, OlderFileStays) {
  folder.write("a", "old");
  PendingFile const file(folder.path("a"));
  EXPECT_FALSE(file.isNew());
  removePendingFiles();
  EXPECT_EQ(folder.read("a"), "old");
}

TEST_F(Pending, ReplacedFileIsNew) {
  folder.write("a", "old");
  PendingFile const file(folder.path("a"));
  folder.write("b", "new");
  std::filesystem::rename(folder.path("b"), folder.path("a"));
  EXPECT_TRUE(file.isNew());
  EXPECT_TRUE(file.remove());
  EXPECT_FALSE(folder.has("a"));
}

TEST_F(Pending, RewrittenFileIsNew) {
  folder.write("a", "old");
  PendingFile const file(folder.path("a"));
  folder.write("a", "longer");
  EXPECT_TRUE(file.isNew());
}

TEST_F(Pending, LinkThatLeadsNowhereIsAnOlderFile) {
  std::filesystem::create_symlink("nowhere", folder.path("a"));
  PendingFile const file(folder.path("a"));
  EXPECT_FALSE(file.isNew());
  removePendingFiles();
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("a")));
}

TEST_F(Pending, MissingFileIsAsGoodAsRemoved) {
  PendingFile const file(folder.path("a"));
  EXPECT_TRUE(file.remove());
}

TEST_F(Pending, FileThatCannotBeRemovedIsReported) {
  PendingFile const file(folder.path("a"));
  std::filesystem::create_directory(folder.path("a"));
  EXPECT_FALSE(file.remove());
}

TEST_F(Pending, FileStaysOnceItIsNoLongerPending) {
  { PendingFile const file(folder.path("a")); }
  folder.write("a", "new");
  removePendingFiles();
  EXPECT_TRUE(folder.has("a"));
}

TEST_F(Pending, ForgottenFileStays) {
  PendingFile const file(folder.path("a"));
  folder.write("a", "new");
  forgetPendingFiles();
  removePendingFiles();
  EXPECT_TRUE(folder.has("a"));
}

}  // namespace
}  // namespace fdmorph

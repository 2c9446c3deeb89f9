// Files at a place relative to the program that runs: here the unit tests themselves.

#include "text/program_place.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/temporary_folder.h"

namespace fdmorph {
namespace {

namespace fs = std::filesystem;

TEST(PathFromProgram, IsRelativeToTheFolderOfTheProgram) {
  std::error_code error;
  fs::path const program = fs::read_symlink("/proc/self/exe");
  EXPECT_EQ(pathFromProgram(program.filename().string(), error), program);
  EXPECT_FALSE(error);
}

TEST(PathFromProgram, HasNoDotsInIt) {
  std::error_code error;
  fs::path const program = fs::read_symlink("/proc/self/exe");
  EXPECT_EQ(pathFromProgram("../libexec/a", error),
            program.parent_path().parent_path() / "libexec" / "a");
  EXPECT_FALSE(error);
}

TEST(PathFromProgram, DoesNotDependOnTheCurrentFolder) {
  std::error_code error;
  fs::path const before = pathFromProgram("../libexec/a", error);
  WorkingFolder const folder;
  EXPECT_EQ(pathFromProgram("../libexec/a", error), before);
  EXPECT_TRUE(before.is_absolute());
}

}  // namespace
}  // namespace fdmorph

// Locks on folders.

#include "driver/folder_lock.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "support/captured_console.h"
#include "support/temporary_folder.h"

namespace fdmorph {
namespace {

class Lock : public ConsoleTest {
 protected:
  // Whether another process could lock the folder now.
  bool isFree() const {
    int const file = open(folder.path("").c_str(), O_RDONLY);
    bool const isLocked = flock(file, LOCK_EX | LOCK_NB) == 0;
    close(file);
    return isLocked;
  }

  WorkingFolder folder;
};

TEST_F(Lock, IsHeldUntilTheEnd) {
  {
    FolderLock const lock("");
    EXPECT_FALSE(isFree());
  }
  EXPECT_TRUE(isFree());
}

TEST_F(Lock, IsOfTheFolderByAnyName) {
  FolderLock const lock(folder.path(""));
  EXPECT_FALSE(isFree());
}

TEST_F(Lock, WaitsForTheOtherRun) {
  std::optional<FolderLock> first(std::in_place, "");
  std::thread other([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    first.reset();
  });
  FolderLock const second("");
  other.join();
  EXPECT_FALSE(isFree());
  EXPECT_EQ(captured.out() + captured.err(), "");
}

TEST_F(Lock, FolderThatCannotBeOpenedIsUsedWithoutOne) {
  FolderLock const lock("missing/");
  EXPECT_EQ(captured.out() + captured.err(), "");
}

}  // namespace
}  // namespace fdmorph

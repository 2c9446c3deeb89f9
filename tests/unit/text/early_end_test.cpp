// Ends before the time: without memory, and by signals.

#include "text/early_end.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <new>

#include "support/temporary_folder.h"
#include "text/pending_files.h"

namespace fdmorph {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

void reportMemory() {
  writeLastLine(STDERR_FILENO, "no memory\n");
}

void reportSignal() {
  writeLastLine(STDERR_FILENO, "a signal\n");
}

class EarlyEnd : public testing::Test {
 protected:
  TemporaryFolder folder;
  PendingFile file{folder.path("pending")};
};

// The handler is what a failed allocation calls. Sanitizers do not let one fail.
TEST_F(EarlyEnd, WithoutMemoryIsALineAndStatus1) {
  EXPECT_EXIT(
      {
        endWithoutMemory(reportMemory);
        folder.write("pending", "part");
        std::get_new_handler()();
      },
      testing::ExitedWithCode(1), "^no memory\n$");
  EXPECT_FALSE(folder.has("pending"));
}

TEST_F(EarlyEnd, OfASignalIsALineAndTheSameSignal) {
  for (int each : kSignals) {
    EXPECT_EXIT(
        {
          endOnSignals(reportSignal);
          folder.write("pending", "part");
          raise(each);
        },
        testing::KilledBySignal(each), "^a signal\n$");
    EXPECT_FALSE(folder.has("pending"));
  }
}

TEST_F(EarlyEnd, IgnoredSignalStaysIgnored) {
  EXPECT_EXIT(
      {
        std::signal(SIGHUP, SIG_IGN);
        endOnSignals(reportSignal);
        raise(SIGHUP);
        restoreEndingSignals();
        raise(SIGHUP);
        std::_Exit(7);
      },
      testing::ExitedWithCode(7), "^$");
}

TEST_F(EarlyEnd, BlockedSignalWaits) {
  EXPECT_EXIT(
      {
        endOnSignals(nullptr);
        {
          SignalsBlocked const blocked;
          raise(SIGTERM);
          writeLastLine(STDERR_FILENO, "still here\n");
        }
        std::_Exit(7);
      },
      testing::KilledBySignal(SIGTERM), "^still here\n$");
}

TEST_F(EarlyEnd, LineThatWouldBlockIsLeftOut) {
  EXPECT_EXIT(
      {
        int ends[2];
        if (pipe(ends) != 0 || fcntl(ends[1], F_SETFL, O_NONBLOCK) != 0) std::_Exit(2);
        while (write(ends[1], "x", 1) == 1) continue;
        fcntl(ends[1], F_SETFL, 0);
        writeLastLine(ends[1], "text");
        std::_Exit(7);
      },
      testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace fdmorph

// Standard streams that were closed when the process began.

#include "driver/process_setup.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>

namespace fdmorph {
namespace {

/// Writes to a pipe without a reader; true if the process survives.
bool outlivesALostReader() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return false;
  close(ends[0]);
  return write(ends[1], "x", 1) == -1;
}

TEST(StandardStreams, NoLaterFileBecomesOne) {
  EXPECT_EXIT(
      {
        for (int descriptor : {0, 1, 2}) close(descriptor);
        secureStandardStreams();
        std::_Exit(open("/dev/null", O_RDONLY) > 2 ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(StandardStreams, ClosedStreamAcceptsNothing) {
  EXPECT_EXIT(
      {
        close(STDOUT_FILENO);
        secureStandardStreams();
        std::_Exit(write(STDOUT_FILENO, "x", 1) == -1 ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(StandardStreams, OpenStreamIsUnchanged) {
  EXPECT_EXIT(
      {
        secureStandardStreams();
        std::_Exit(write(STDERR_FILENO, "still here", 10) == 10 ? 0 : 1);
      },
      testing::ExitedWithCode(0), "still here");
}

TEST(StandardStreams, PipeWithoutAReaderMakesWritingFail) {
  EXPECT_EXIT(
      {
        secureStandardStreams();
        std::_Exit(outlivesALostReader() ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(StandardStreams, ChildHasTheUsualSignals) {
  EXPECT_EXIT(
      {
        secureStandardStreams();
        restoreSignals();
        std::_Exit(outlivesALostReader() ? 0 : 1);
      },
      testing::KilledBySignal(SIGPIPE), "");
}

}  // namespace
}  // namespace fdmorph

// What happens when the stack runs out.

#include "driver/process_setup.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstdlib>

namespace fdmorph {
namespace {

constexpr rlim_t kMebibyte = rlim_t{1} << 20;

rlimit stackLimit() {
  rlimit limit{};
  getrlimit(RLIMIT_STACK, &limit);
  return limit;
}

/// Sets a limit that is soon reached and cannot be raised far.
void setStackLimit(rlim_t now, rlim_t highest) {
  rlimit limit{now, highest};
  setrlimit(RLIMIT_STACK, &limit);
}

[[maybe_unused]] int nest(int depth) {
  char volatile frame[4096] = {static_cast<char>(depth)};
  return depth < 0 ? 0 : nest(depth + 1) + frame[0];
}

TEST(StackGuard, RaisesTheLimitAsFarAsTheSystemAllows) {
  EXPECT_EXIT(
      {
        setStackLimit(4 * kMebibyte, 16 * kMebibyte);
        guardStack();
        std::_Exit(stackLimit().rlim_cur == 16 * kMebibyte ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(StackGuard, NeverLowersTheLimit) {
  EXPECT_EXIT(
      {
        rlim_t const before = stackLimit().rlim_cur;
        guardStack();
        std::_Exit(stackLimit().rlim_cur >= before ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(StackGuard, OverflowEndsWithAnInternalErrorInsteadOfASignal) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "AddressSanitizer handles the overflow itself";
#else
  EXPECT_EXIT(
      {
        setStackLimit(4 * kMebibyte, 16 * kMebibyte);
        guardStack();
        std::_Exit(nest(0) == 0 ? 2 : 3);
      },
      testing::ExitedWithCode(1), "^Internal Error : Input is nested too deeply\n$");
#endif
}

}  // namespace
}  // namespace fdmorph

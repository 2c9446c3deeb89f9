#include "driver/process_setup.h"

#include <fcntl.h>
#include <sigsegv.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <initializer_list>

#include "driver/settings.h"
#include "text/console.h"

namespace fdmorph {
namespace {

// The kernel keeps at least this much address space free below the stack of a
// program, independent of the limit at its start.
constexpr rlim_t kWantedStack = rlim_t{1} << 30;
constexpr std::size_t kHandlerStack = std::size_t{64} << 10;
constexpr char kMessage[] = "Internal Error : Input is nested too deeply\n";

void writeMessage(int descriptor) {
  // Nothing can be done about a failure here.
  [[maybe_unused]] ssize_t written = write(descriptor, kMessage, sizeof kMessage - 1);
}

// Runs on a stack of its own, at any point of the program, so only calls that
// are safe in a signal handler may follow.
void onStackOverflow(int /*emergency*/, stackoverflow_context_t /*context*/) {
  writeMessage(console.logDescriptor >= 0 ? console.logDescriptor : STDERR_FILENO);
  _exit(kStatusError);
}

void raiseStackLimit() {
  rlimit limit{};
  if (getrlimit(RLIMIT_STACK, &limit) != 0) return;
  rlim_t wanted =
      limit.rlim_max == RLIM_INFINITY ? kWantedStack : std::min(limit.rlim_max, kWantedStack);
  if (limit.rlim_cur == RLIM_INFINITY || limit.rlim_cur >= wanted) return;
  limit.rlim_cur = wanted;
  setrlimit(RLIMIT_STACK, &limit);
}

}  // namespace

void secureStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  for (int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) != -1) continue;
    // This is the lowest free number. It is not open for writing, because text
    // that is written there is lost and must count as lost.
    [[maybe_unused]] int opened = open("/dev/null", O_RDONLY);
  }
}

void restoreSignals() {
  std::signal(SIGPIPE, SIG_DFL);
}

void guardStack() {
  static char handlerStack[kHandlerStack];
  raiseStackLimit();
  stackoverflow_install_handler(onStackOverflow, handlerStack, sizeof handlerStack);
}

}  // namespace fdmorph

#include "driver/process_setup.h"

#include <fcntl.h>
#include <sigsegv.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <initializer_list>

#include "driver/compiler_process.h"
#include "driver/settings.h"
#include "text/console.h"
#include "text/early_end.h"
#include "text/pending_files.h"

namespace fdmorph {
namespace {

// The kernel keeps at least this much address space free below the stack of a
// program, independent of the limit at its start.
constexpr rlim_t kWantedStack = rlim_t{1} << 30;
constexpr std::size_t kHandlerStack = std::size_t{64} << 10;
constexpr std::size_t kStackProbe = std::size_t{1} << 20;
constexpr char kBadAccess[] = "Internal Error : Invalid memory access\n";
constexpr char kTooDeep[] = "Internal Error : Input is nested too deeply\n";
constexpr char kOutOfMemory[] = "Error : Out of memory\n";
constexpr char kInterrupted[] = "Error : Interrupted by a signal\n";

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kIsSanitized = true;
#elif defined(__has_feature)
constexpr bool kIsSanitized = __has_feature(address_sanitizer);
#else
constexpr bool kIsSanitized = false;
#endif

// The functions below run at any point of the program, in signal handlers and
// without memory.

void report(char const* line) {
  writeLastLine(console.logDescriptor >= 0 ? console.logDescriptor : STDERR_FILENO, line);
}

// The stack also ends where the process may have no more address space.
bool isAddressSpaceUsed() {
  void* probe = mmap(nullptr, kStackProbe, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return probe == MAP_FAILED;
}

// Runs on a stack of its own.
void onStackOverflow(int /*emergency*/, stackoverflow_context_t /*context*/) {
  removePendingFiles();
  report(isAddressSpaceUsed() ? kOutOfMemory : kTooDeep);
  _exit(kStatusError);
}

// The XML library follows null pointers on some invalid schemas. A fault that is
// not serious may be a stack overflow, which has its own handler.
int onBadAccess(void* /*address*/, int isSerious) {
  if (isSerious == 0) return 0;
  removePendingFiles();
  report(kBadAccess);
  _exit(kStatusError);
}

void onSignal() {
  endCompiler();
  report(kInterrupted);
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
  std::signal(SIGXFSZ, SIG_IGN);
  for (int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) != -1) continue;
    // This is the lowest free number. Output that is written there must count as
    // lost, so it is not open for writing. Messages may get lost on purpose.
    int access = descriptor == STDERR_FILENO ? O_WRONLY : O_RDONLY;
    [[maybe_unused]] int opened = open("/dev/null", access);
  }
}

void restoreSignals() {
  std::signal(SIGPIPE, SIG_DFL);
  std::signal(SIGXFSZ, SIG_DFL);
  restoreEndingSignals();
}

void guardEnd() {
  endWithoutMemory([] { report(kOutOfMemory); });
  endOnSignals(onSignal);
}

void guardStack() {
  static char handlerStack[kHandlerStack];
  raiseStackLimit();
  stackoverflow_install_handler(onStackOverflow, handlerStack, sizeof handlerStack);
  // AddressSanitizer has to see such an access itself.
  if (!kIsSanitized) sigsegv_install_handler(onBadAccess);
}

}  // namespace fdmorph

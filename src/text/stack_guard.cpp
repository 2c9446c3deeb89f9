#include "text/stack_guard.h"

#include <sigsegv.h>
#include <sys/mman.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstddef>

namespace fdmorph {
namespace {

// The kernel keeps at least this much address space free below the stack of a
// program, independent of the limit at its start.
constexpr rlim_t kWantedStack = rlim_t{1} << 30;
constexpr std::size_t kHandlerStack = std::size_t{64} << 10;
constexpr std::size_t kStackProbe = std::size_t{1} << 20;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kIsSanitized = true;
#elif defined(__has_feature)
constexpr bool kIsSanitized = __has_feature(address_sanitizer);
#else
constexpr bool kIsSanitized = false;
#endif

void (*overflowHandler)(bool) = nullptr;
void (*accessHandler)() = nullptr;

// The functions below run at any point of the program, in signal handlers and
// without memory.

// The stack also ends where the process may have no more address space.
bool isAddressSpaceUsed() {
  void* probe = mmap(nullptr, kStackProbe, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return probe == MAP_FAILED;
}

// Runs on a stack of its own.
void onStackOverflow(int /*emergency*/, stackoverflow_context_t /*context*/) {
  overflowHandler(isAddressSpaceUsed());
}

// A fault that is not serious may be a stack overflow, which has its own handler.
int onFault(void* /*address*/, int isSerious) {
  if (isSerious != 0) accessHandler();
  return 0;
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

void installStackGuard(void (*onOverflow)(bool isMemoryUsed), void (*onBadAccess)()) {
  static char handlerStack[kHandlerStack];
  overflowHandler = onOverflow;
  accessHandler = onBadAccess;
  raiseStackLimit();
  stackoverflow_install_handler(onStackOverflow, handlerStack, sizeof handlerStack);
  // AddressSanitizer has to see such an access itself.
  if (!kIsSanitized) sigsegv_install_handler(onFault);
}

}  // namespace fdmorph

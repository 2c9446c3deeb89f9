// How a process ends before its time: without memory, or by a signal. In both
// cases its pending files are removed.
#pragma once

#include <csignal>

namespace fdmorph {

/// Prints a last line. It runs in signal handlers and without memory.
using LastLine = void (*)();

/// Has a failed allocation end the process with `report` and exit status 1. No
/// exception is thrown, so the code in between need not be able to pass one.
void endWithoutMemory(LastLine report);

/// The same end, for an allocation that fails in another way. To be called
/// after the other endWithoutMemory.
[[noreturn]] void endWithoutMemory();

/// Has SIGINT, SIGTERM and SIGHUP end the process by the same signal, but with
/// `report` before that, unless it is null. Signals that are ignored stay
/// ignored.
void endOnSignals(LastLine report);

/// Keeps these signals from being delivered during its lifetime.
class SignalsBlocked {
 public:
  SignalsBlocked();
  ~SignalsBlocked();
  SignalsBlocked(SignalsBlocked const&) = delete;
  SignalsBlocked& operator=(SignalsBlocked const&) = delete;

 private:
  sigset_t m_before;
};

/// Gives these signals their usual effect again, for a child process. Those that
/// are ignored stay ignored.
void restoreEndingSignals();

/// Writes `text` to the descriptor, unless that would block.
void writeLastLine(int descriptor, char const* text);

}  // namespace fdmorph

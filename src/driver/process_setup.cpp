#include "driver/process_setup.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>
#include <optional>

#include "driver/compiler_process.h"
#include "driver/settings.h"
#include "text/console.h"
#include "text/early_end.h"
#include "text/pending_files.h"
#include "text/stack_guard.h"
#include "text/status_line.h"
#include "text/terminal.h"

namespace fdmorph {
namespace {

constexpr char kBadAccess[] = "Internal Error : Invalid memory access\n";
constexpr char kTooDeep[] = "Internal Error : Input is nested too deeply\n";
constexpr char kOutOfMemory[] = "Error : Out of memory\n";
constexpr char kInterrupted[] = "Error : Interrupted by a signal\n";

// The functions below run at any point of the program, in signal handlers and
// without memory.

void report(char const* line) {
  statusLine.hide();
  writeLastLine(console.logDescriptor >= 0 ? console.logDescriptor : STDERR_FILENO, line);
}

void onStackOverflow(bool isMemoryUsed) {
  removePendingFiles();
  report(isMemoryUsed ? kOutOfMemory : kTooDeep);
  _exit(kStatusError);
}

// The XML library follows null pointers on some invalid schemas.
void onBadAccess() {
  removePendingFiles();
  report(kBadAccess);
  _exit(kStatusError);
}

void onSignal() {
  endCompiler();
  report(kInterrupted);
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

void startStatusLine() {
  if (console.quietMode || console.logMode) return;
  std::optional<StatusLine::Terminal> const terminal = terminalOfErrors();
  if (!terminal) return;
  statusLine.start(*terminal);
  hideStatusLineOnSignals();
}

void guardStack() {
  installStackGuard(onStackOverflow, onBadAccess);
}

}  // namespace fdmorph

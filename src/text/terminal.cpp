#include "text/terminal.h"

#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>

namespace fdmorph {
namespace {

constexpr unsigned kUsualColumns = 80;  // of a terminal that does not know its size
constexpr std::array kSignals{SIGTSTP, SIGQUIT};

void writeToTerminal(std::string_view text) {
  int const fault = errno;
  // A line that is not drawn does no harm.
  [[maybe_unused]] ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
  errno = fault;
}

StatusLine::Duration timeNow() {
  return std::chrono::steady_clock::now().time_since_epoch();
}

unsigned columnsNow() {
  // There is none for a terminal that does not control the process.
  pid_t const foreground = tcgetpgrp(STDERR_FILENO);
  if (foreground >= 0 && foreground != getpgrp()) return 0;
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kUsualColumns;
  return size.ws_col;
}

bool canClearLines() {
  char const* type = std::getenv("TERM");
  return type != nullptr && *type != '\0' && std::string_view(type) != "dumb";
}

void setHandler(int number, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(number, &action, nullptr);
}

// Runs at any point of the program, so only calls that are safe in a signal handler may
// follow.
void onSignal(int number) {
  int const fault = errno;
  statusLine.hide();
  std::signal(number, SIG_DFL);
  raise(number);
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, number);
  sigprocmask(SIG_UNBLOCK, &set, nullptr);  // the process stops here, or ends
  setHandler(number, onSignal);
  errno = fault;
}

}  // namespace

bool isPipe(int descriptor) {
  struct stat state {};
  return fstat(descriptor, &state) == 0 && (S_ISFIFO(state.st_mode) || S_ISSOCK(state.st_mode));
}

std::optional<StatusLine::Terminal> terminalOfErrors() {
  if (isatty(STDERR_FILENO) != 1 || isPipe(STDOUT_FILENO) || !canClearLines()) return std::nullopt;
  return StatusLine::Terminal{writeToTerminal, timeNow, columnsNow};
}

void hideStatusLineOnSignals() {
  for (int each : kSignals) {
    struct sigaction action {};
    if (sigaction(each, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
    setHandler(each, onSignal);
  }
}

}  // namespace fdmorph

#include "text/early_end.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <new>

#include "text/pending_files.h"

namespace fdmorph {
namespace {

constexpr int kStatus = 1;
constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

LastLine memoryReport = nullptr;
LastLine signalReport = nullptr;

sigset_t endingSignals() {
  sigset_t set;
  sigemptyset(&set);
  for (int each : kSignals) sigaddset(&set, each);
  return set;
}

// Runs at any point of the program, so only calls that are safe in a signal
// handler may follow.
void onSignal(int number) {
  if (signalReport != nullptr) signalReport();
  removePendingFiles();
  std::signal(number, SIG_DFL);
  raise(number);
  sigset_t set = endingSignals();
  sigprocmask(SIG_UNBLOCK, &set, nullptr);  // the signal is delivered here
}

void setEffect(int number, void (*effect)(int)) {
  struct sigaction action {};
  if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
  action.sa_handler = effect;
  action.sa_mask = endingSignals();
  action.sa_flags = SA_RESTART;
  sigaction(number, &action, nullptr);
}

}  // namespace

void endWithoutMemory(LastLine report) {
  memoryReport = report;
  std::set_new_handler([] { endWithoutMemory(); });
}

void endWithoutMemory() {
  removePendingFiles();
  if (memoryReport != nullptr) memoryReport();
  _exit(kStatus);
}

void endOnSignals(LastLine report) {
  signalReport = report;
  for (int each : kSignals) setEffect(each, onSignal);
}

SignalsBlocked::SignalsBlocked() {
  sigset_t set = endingSignals();
  sigprocmask(SIG_BLOCK, &set, &m_before);
}

SignalsBlocked::~SignalsBlocked() {
  sigprocmask(SIG_SETMASK, &m_before, nullptr);
}

void restoreEndingSignals() {
  for (int each : kSignals) setEffect(each, SIG_DFL);
}

void writeLastLine(int descriptor, char const* text) {
  pollfd where{descriptor, POLLOUT, 0};
  if (poll(&where, 1, 0) != 1 || (where.revents & POLLOUT) == 0) return;
  // Nothing can be done about a failure here.
  [[maybe_unused]] ssize_t written = write(descriptor, text, std::strlen(text));
}

}  // namespace fdmorph

#include "driver/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace fdmorph {

void secureStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  for (int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) != -1) continue;
    // The lowest free number is this one. Not open for writing: a text that is
    // written there is lost, and has to count as lost.
    [[maybe_unused]] int opened = open("/dev/null", O_RDONLY);
  }
}

void restoreSignals() {
  std::signal(SIGPIPE, SIG_DFL);
}

}  // namespace fdmorph

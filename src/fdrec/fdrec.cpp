// fdrec, the program for records.
#include <unistd.h>

#include "fdrec/command_line.h"
#include "text/early_end.h"
#include "text/pending_files.h"
#include "text/stack_guard.h"

namespace {

constexpr int kStatusError = 1;

[[noreturn]] void end(char const* line) {
  fdmorph::removePendingFiles();
  fdmorph::writeLastLine(STDERR_FILENO, line);
  _exit(kStatusError);
}

}  // namespace

int main(int count, char** arguments) {
  fdmorph::endWithoutMemory(
      [] { fdmorph::writeLastLine(STDERR_FILENO, "fdrec: error: out of memory [size]\n"); });
  // The XML library reads nested types by recursion.
  fdmorph::installStackGuard(
      [](bool isMemoryUsed) {
        end(isMemoryUsed ? "fdrec: error: out of memory [size]\n"
                         : "fdrec: error: the input is nested too deeply [size]\n");
      },
      [] { end("fdrec: error: invalid memory access [internal]\n"); });
  fdmorph::endOnSignals(nullptr);  // the shell says enough
  return fdmorph::fdrec::runProgram(count, arguments);
}

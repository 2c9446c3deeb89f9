// fdrec, the program for records.
#include <unistd.h>

#include "fdrec/command_line.h"
#include "text/early_end.h"

int main(int count, char** arguments) {
  fdmorph::endWithoutMemory(
      [] { fdmorph::writeLastLine(STDERR_FILENO, "fdrec: error: out of memory [size]\n"); });
  fdmorph::endOnSignals(nullptr);  // the shell says enough
  return fdmorph::fdrec::runProgram(count, arguments);
}

// zbc, the data division compiler.
#include <unistd.h>

#include "compiler/compilation.h"
#include "text/early_end.h"

int main(int count, char** arguments) {
  fdmorph::endWithoutMemory(
      [] { fdmorph::writeLastLine(STDERR_FILENO, fdmorph::compiler::kOutOfMemory); });
  fdmorph::endOnSignals(nullptr);  // the shell says enough
  return fdmorph::compiler::compilerMain({arguments + (count > 0 ? 1 : 0), arguments + count});
}

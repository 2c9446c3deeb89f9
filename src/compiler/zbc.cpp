// zbc, the data division compiler.
#include "compiler/compilation.h"

int main(int count, char** arguments) {
  return fdmorph::compiler::compilerMain({arguments + (count > 0 ? 1 : 0), arguments + count});
}

// fdrec with all commands, which fdrec runs.
#include "fdrec/command_line.h"

int main(int count, char** arguments) {
  using namespace fdmorph::fdrec;
  return runProgram(count, arguments, allCommands());
}

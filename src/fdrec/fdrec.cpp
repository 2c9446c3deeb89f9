// fdrec, the program for records. It runs the commands on data itself, and starts soon,
// since it does not load the XML library.
#include "fdrec/command_line.h"
#include "fdrec/whole_program.h"

int main(int count, char** arguments) {
  using namespace fdmorph::fdrec;
  if (!isOnData({arguments, static_cast<std::size_t>(count)})) return runWholeProgram(arguments);
  return runProgram(count, arguments, dataCommands(nullptr));
}

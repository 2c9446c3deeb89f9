// fdmorph: converts between COBOL data definitions and XML Schema.

#include <clocale>

#include "driver/command_line.h"
#include "driver/runs.h"
#include "driver/stack_guard.h"
#include "driver/standard_streams.h"
#include "driver/usage.h"
#include "text/console.h"

namespace fdmorph {
namespace {

int run(int argc, char** argv) {
  if (argc <= 1) {
    printUsage();
    return 0;
  }
  Settings settings;
  openRequestedLog(argc, argv);
  if (std::optional<int> status = scanArguments(argc, argv, settings)) return *status;
  if (settings.givenName.empty()) {
    out() << "Error : Source filename not specified" << endLine;
    RestoreStreams();
    return 1;
  }
  if (!console.quietMode) DisplayHeader();
  if (settings.validationRun) return runValidation(settings);
  if (settings.cobolRun) return runCobolToSchema(settings);
  return runSchemaToCobol(settings);
}

}  // namespace
}  // namespace fdmorph

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  fdmorph::secureStandardStreams();
  fdmorph::guardStack();
  int status = fdmorph::run(argc, argv);
  return fdmorph::flushConsole() || status != 0 ? status : 1;
}

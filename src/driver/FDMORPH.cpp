// fdmorph: converts between COBOL data definitions and XML Schema.

#include <clocale>
#include <new>

#include "driver/command_line.h"
#include "driver/process_setup.h"
#include "text/console.h"
#include "text/early_end.h"
#include "text/status_line.h"

namespace fdmorph {
namespace {

int run(int argc, char** argv) {
  if (argc <= 1) {
    printUsage();
    return kStatusOk;
  }
  if (!openRequestedLog(argc, argv)) return kStatusError;
  auto [settings, status] = scanArguments(argc, argv);
  if (status) return *status;
  if (settings.givenName.empty()) {
    out() << "Error : Source filename not specified" << endLine;
    return stopRun();
  }
  if (!console.quietMode) DisplayHeader();
  startStatusLine();
  switch (settings.run) {
    case Run::cobolToSchema:
      return runCobolToSchema(settings);
    case Run::schemaToCobol:
      return runSchemaToCobol(settings);
    case Run::validation:
      return runValidation(settings);
    case Run::none:
      break;
  }
  return stopRun(reportStatus());
}

}  // namespace
}  // namespace fdmorph

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  fdmorph::secureStandardStreams();
  fdmorph::guardStack();
  fdmorph::guardEnd();
  try {
    int status = fdmorph::run(argc, argv);
    fdmorph::statusLine.end();
    return fdmorph::flushConsole() || status != fdmorph::kStatusOk ? status : fdmorph::kStatusError;
  } catch (std::bad_alloc const&) {  // of a size that no memory has
    fdmorph::endWithoutMemory();
  }
}

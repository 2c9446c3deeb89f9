#include "driver/runs.h"
#include "text/console.h"

namespace fdmorph {

int runCobolToSchema(Settings const& settings) {
  out() << "Error : Conversion of COBOL file \"" << settings.sourceFile
        << "\" to XML Schema is not available yet" << endLine;
  RestoreStreams();
  return reportStatus();
}

}  // namespace fdmorph

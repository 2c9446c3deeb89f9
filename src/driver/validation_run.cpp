#include "driver/settings.h"
#include "text/console.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {

int runValidation(Settings const& settings) {
  CDMXMLNodeStore store;
  CDMDOMParser::InitializePlatform();
  CDMDOMParser parser(store);
  out() << "Performing validation of \"" << settings.givenName << "\", ignoring other options"
        << endLine;
  // A schema that was named before -V is validated instead.
  if (!settings.schemaFile.empty()) {
    parser.ParseFile(settings.schemaFile, CDMDOMParser::FILE_TYPE::XML_SCHEMA, true);
  } else if (!settings.xmlFile.empty()) {
    // Despite its message, the first pass checks well-formedness only.
    out() << endLine << "Validating \"" << settings.xmlFile
          << "\" for well-formedness and schema conformity." << endLine;
    parser.CheckDocument(settings.xmlFile, false);
    out() << endLine << "Validating \"" << settings.xmlFile << "\" for schema conformity. "
          << endLine;
    parser.CheckDocument(settings.xmlFile, true);
  } else {
    out() << "Error : Failed to specify XML Schema filename" << endLine;
    return stopRun();
  }
  parser.DisplayErrorSummary();
  RestoreStreams();
  return reportStatus();
}

}  // namespace fdmorph

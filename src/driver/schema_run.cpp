#include "cobol/DMCOBOLGenerator.h"
#include "driver/file_helpers.h"
#include "driver/settings.h"
#include "schema/schema_loader.h"
#include "schema/schema_preprocessing.h"
#include "text/console.h"
#include "text/multibyte.h"
#include "xml/DMDOMParser.h"
#include "xml/paths.h"

namespace fdmorph {
namespace {

std::string defaultCopybook(std::string const& schemaFile) {
  return schemaFile.substr(0, schemaFile.rfind('.')) + ".cpy";
}

int failToCreate(CDMDOMParser& parser, std::string const& copybookFile) {
  out() << endLine;
  parser.DisplayErrorSummary();
  out() << "Failed to create " << copybookFile << endLine;
  return stopRun();
}

// The base of the locations in the schema. A name that is not valid in the
// locale is reported.
std::string absoluteName(std::string const& schemaFile) {
  if (my_mbstowcs(schemaFile.c_str()).empty()) return getFullPath(schemaFile);
  return isRelativePath(schemaFile) ? getFullPath(schemaFile) : schemaFile;
}

}  // namespace

int runSchemaToCobol(Settings const& settings) {
  CDMXMLNodeStore store;
  CDMDOMParser::InitializePlatform();
  InputFiles files;
  CDMDOMParser parser(store, files);
  std::string const& schemaFile = settings.schemaFile;
  if (schemaFile.empty()) {
    out() << "Error : Failed to specify XML Schema filename" << endLine;
    if (settings.sourceFile.empty()) {
      out() << "Error : Failed to specify COBOL Copybook filename" << endLine;
    }
    return stopRun();
  }
  std::string copybookFile =
      settings.copybookFile.empty() ? defaultCopybook(schemaFile) : settings.copybookFile;
  // Without a question nothing else protects the schema.
  if (!settings.promptOverwrite && isRefusedOutput(copybookFile, schemaFile)) return stopRun();
  out() << "Checking " << schemaFile << " for errors" << endLine;
  if (!parser.ParseFile(schemaFile, CDMDOMParser::FILE_TYPE::XML_SCHEMA, true)) {
    return failToCreate(parser, copybookFile);
  }
  out() << "No schema errors found, processing XML schema " << schemaFile << endLine;
  SchemaFileLoader loader(store, files);
  CDMXMLElement* tree = parser.getXMLDocument();
  parser.releaseDocument();
  SchemaSet const schema =
      SchemaPreprocessing(loader).PreProcessSchema(tree, absoluteName(schemaFile));
  files.clear();
  if (schema.isTooLarge) {
    err(Shown::always) << "Error : Schema set exceeds " << static_cast<long long>(kMaxSchemaFiles)
                       << " files" << endLine;
    return failToCreate(parser, copybookFile);
  }
  CDMCOBOLGenerator generator(&schema.main);
  if (!FileExists(copybookFile, settings.promptOverwrite) || !settings.promptOverwrite) {
    if (isRefusedOutput(copybookFile, schemaFile)) return stopRun();
    generator.GenerateFile(copybookFile, settings.dataPrefix, settings.countIn,
                           settings.uniqueNames);
    parser.DisplayErrorSummary();
  }
  RestoreStreams();
  return reportStatus();
}

}  // namespace fdmorph

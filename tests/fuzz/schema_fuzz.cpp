// Schemas, all the way to the copybook.

#include "cobol/DMCOBOLGenerator.h"
#include "input_file.h"
#include "schema/schema_loader.h"
#include "schema/schema_preprocessing.h"
#include "xml/DMDOMParser.h"
#include "xml/paths.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  using fdmorph::CDMDOMParser;
  fdmorph::FuzzInputFile file(data, size, ".xsd");
  fdmorph::CDMXMLNodeStore store;
  CDMDOMParser parser(store);
  if (!parser.ParseFile(file.name(), CDMDOMParser::FILE_TYPE::XML_SCHEMA, true)) return 0;
  fdmorph::SchemaFileLoader loader(store);
  fdmorph::SchemaSet const schema = fdmorph::SchemaPreprocessing(loader).PreProcessSchema(
      parser.getXMLDocument(), fdmorph::getFullPath(file.name()));
  fdmorph::CDMCOBOLGenerator generator(&schema.main);
  generator.GenerateFile("/dev/null", "P-", true, true);
  return 0;
}

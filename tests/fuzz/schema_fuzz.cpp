// Schemas, all the way to the copybook.

#include "cobol/DMCOBOLGenerator.h"
#include "input_file.h"
#include "schema/schema_file_loader.h"
#include "xml/DMDOMParser.h"
#include "xml/paths.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  using fdmorph::CDMDOMParser;
  fdmorph::FuzzInputFile file(data, size, ".xsd");
  fdmorph::CDMXMLNodeStore store;
  CDMDOMParser parser(store);
  if (!parser.ParseFile(file.name(), CDMDOMParser::FILE_TYPE::XML_SCHEMA, true)) return 0;
  fdmorph::SchemaFileLoader loader(store);
  fdmorph::CDMXMLSchemaDoc document(parser.getXMLDocument(), fdmorph::getFullPath(file.name()),
                                    loader);
  fdmorph::CDMCOBOLGenerator generator(&document);
  generator.GenerateFile("/dev/null", "P-", true, true);
  return 0;
}

// Documents that are read without validation, into the tool's own tree.

#include "input_file.h"
#include "xml/DMDOMParser.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  using fdmorph::CDMDOMParser;
  fdmorph::FuzzInputFile file(data, size, ".xml");
  fdmorph::CDMXMLNodeStore store;
  CDMDOMParser parser(store);
  if (parser.ParseFile(file.name(), CDMDOMParser::FILE_TYPE::XML_DOCUMENT, false)) {
    static_cast<void>(parser.getXMLDocument());
  }
  parser.CheckDocument(file.name(), true);
  return 0;
}

// Instance documents: the first file is main.xml, the others are b.xsd, c.xsd
// and so on, which it may name as its schemas. The document is also read into
// the tool's own tree.

#include "driver/settings.h"
#include "fuzz_input.h"
#include "xml/DMDOMParser.h"

namespace {

using namespace fdmorph;

constexpr std::size_t kMaxFiles = 4;
constexpr char kDocument[] = "main.xml";

void readTree() {
  CDMXMLNodeStore store;
  CDMDOMParser parser(store);
  if (parser.ParseFile(kDocument, CDMDOMParser::FILE_TYPE::XML_DOCUMENT, false)) {
    static_cast<void>(parser.getXMLDocument());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  startFuzzLibrary();
  std::string name = kDocument;
  char next = 'b';
  for (std::string_view file : splitFuzzFiles(fuzzText(data, size), kMaxFiles)) {
    writeFuzzFile(name, file);
    name = std::string(1, next++) + ".xsd";
  }
  Settings settings;
  settings.givenName = settings.xmlFile = kDocument;
  beginFuzzRun();
  static_cast<void>(runValidation(settings));
  beginFuzzRun();
  readTree();
  return 0;
}

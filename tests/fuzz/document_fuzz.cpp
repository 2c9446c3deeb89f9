// Instance documents: the first file is main.xml, the others are b.xsd, c.xsd
// and so on, which it may name as its schemas. The document is also read into
// the tool's own tree.

#include <algorithm>

#include "driver/settings.h"
#include "fuzz_input.h"
#include "xml/DMDOMParser.h"

namespace {

using namespace fdmorph;

constexpr std::size_t kMaxFiles = 4;
constexpr char kDocument[] = "main.xml";

// The library builds a content model with a state for each repetition of a group,
// in quadratic time, so bounds of more than two digits are left out.
bool hasLargeBounds(std::string_view text) {
  constexpr std::string_view kName = "Occurs";
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::size_t kMaxDigits = 2;
  for (std::size_t at = text.find(kName); at != std::string_view::npos;
       at = text.find(kName, at + 1)) {
    std::size_t const begin = text.find_first_of(kDigits, at);
    if (begin == std::string_view::npos) return false;
    std::size_t const end = std::min(text.find_first_not_of(kDigits, begin), text.size());
    if (end - begin > kMaxDigits) return true;
  }
  return false;
}

void readTree() {
  CDMXMLNodeStore store;
  CDMDOMParser parser(store);
  if (parser.ParseFile(kDocument, CDMDOMParser::FILE_TYPE::XML_DOCUMENT, false)) {
    static_cast<void>(parser.getXMLDocument());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (hasLargeBounds(fuzzText(data, size))) return 0;
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

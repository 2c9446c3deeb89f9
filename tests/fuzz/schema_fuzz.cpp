// Sets of schemas, all the way to the copybook, and their validation. The first
// byte chooses the options; the first file is main.xsd, the others are b.xsd,
// c.xsd and so on, which it may include, import or redefine.

#include "cobol/DMCOBOLGenerator.h"
#include "driver/settings.h"
#include "fuzz_input.h"
#include "schema/schema_loader.h"
#include "schema/schema_preprocessing.h"
#include "xml/DMDOMParser.h"
#include "xml/paths.h"

namespace {

using namespace fdmorph;

constexpr std::size_t kMaxFiles = 6;
constexpr unsigned kUnique = 1;
constexpr unsigned kNoCountIn = 2;
constexpr char kSchema[] = "main.xsd";

// A record up to the tool's own limits takes a minute here.
constexpr RecordLimits kLimits{20'000, 20'000, 1'000'000};

// The steps of the conversion run.
void convert(bool countIn, bool unique) {
  CDMXMLNodeStore store;
  InputFiles files;
  CDMDOMParser parser(store, files);
  if (!parser.ParseFile(kSchema, CDMDOMParser::FILE_TYPE::XML_SCHEMA, true)) return;
  SchemaFileLoader loader(store, files);
  CDMXMLElement* tree = parser.getXMLDocument();
  parser.releaseDocument();
  SchemaSet const schema = SchemaPreprocessing(loader).PreProcessSchema(tree, getFullPath(kSchema));
  CDMCOBOLGenerator generator(&schema.main, kLimits);
  generator.GenerateFile("/dev/null", "P-", countIn, unique);
}

void validate() {
  Settings settings;
  settings.givenName = settings.schemaFile = kSchema;
  static_cast<void>(runValidation(settings));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0) return 0;
  startFuzzLibrary();
  std::string name = kSchema;
  char next = 'b';
  for (std::string_view file : splitFuzzFiles(fuzzText(data + 1, size - 1), kMaxFiles)) {
    writeFuzzFile(name, file);
    name = std::string(1, next++) + ".xsd";
  }
  beginFuzzRun();
  convert((data[0] & kNoCountIn) == 0, (data[0] & kUnique) != 0);
  beginFuzzRun();
  validate();
  return 0;
}

// Sets of schemas, all the way to the copybook, their validation and their bundle. The first
// byte chooses the options; the first file is main.xsd, the others are b.xsd,
// c.xsd and so on, which it may include, import or redefine.

#include <sys/stat.h>

#include <cerrno>

#include "bundle/closure.h"
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
constexpr char kFolder[] = "bundle/";

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

// The files of a bundle, each with its name.
std::string bundleOf(std::string const& schema, bool isWritten) {
  FileResolver resolver;
  bundle::Closure closure(resolver, {});
  closure.gather(schema);
  std::string all;
  if (!closure.findings().empty()) return all;
  for (std::size_t i = 0; i < closure.files().size(); ++i) {
    bundle::Closure::File const& file = closure.files()[i];
    std::string const content = closure.contentOf(i);
    if (isWritten) writeFuzzFile(kFolder + file.name, content);
    all.append(file.name).append("\n").append(content);
  }
  return all;
}

// The bundle of a bundle is the same.
void checkBundle() {
  std::string const once = bundleOf(kSchema, true);
  if (once.empty()) return;
  std::string const twice = bundleOf(kFolder + std::string(kSchema), false);
  if (twice != once) failFuzzRun("a bundle is complete", once + "\n---\n" + twice);
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
  static bool const isMade = mkdir(kFolder, 0777) == 0 || errno == EEXIST;
  if (isMade) checkBundle();
  return 0;
}

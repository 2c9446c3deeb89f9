// Sets of schemas, all the way to the copybook, and their validation. The first
// byte chooses the options; the first file is main.xsd, the others are b.xsd,
// c.xsd and so on, which it may include, import or redefine.

#include "driver/settings.h"
#include "fuzz_input.h"

namespace {

using namespace fdmorph;

constexpr std::size_t kMaxFiles = 6;
constexpr unsigned kUnique = 1;
constexpr unsigned kNoCountIn = 2;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0) return 0;
  startFuzzLibrary();
  std::string name = "main.xsd";
  char next = 'b';
  for (std::string_view file : splitFuzzFiles(fuzzText(data + 1, size - 1), kMaxFiles)) {
    writeFuzzFile(name, file);
    name = std::string(1, next++) + ".xsd";
  }
  Settings settings;
  settings.givenName = settings.schemaFile = "main.xsd";
  settings.copybookFile = "main.cpy";
  settings.dataPrefix = "P-";
  settings.promptOverwrite = false;
  settings.uniqueNames = (data[0] & kUnique) != 0;
  settings.countIn = (data[0] & kNoCountIn) == 0;
  beginFuzzRun();
  static_cast<void>(runSchemaToCobol(settings));
  beginFuzzRun();
  static_cast<void>(runValidation(settings));
  return 0;
}

// A mapping file for a fixed data dictionary: the outputs that follow it, and its check
// and merge for a copybook. What was merged stays as it is in a second merge.

#include <clocale>

#include "dictionary_outputs.h"
#include "mapping/mapping_check.h"
#include "mapping/mapping_merge.h"
#include "support/memory_tree.h"

namespace {

constexpr char kDictionary[] = R"xml(<program name="a"><dataItems>
<group name="R" level="1" length="40">
<alphanumeric name="A" level="5" usage="display" picture="X(8)" length="8"/>
<group name="T" level="5" length="4" minOccurs="1" maxOccurs="4" odo="R.N">
<numeric name="N" level="10" usage="comp-4" digits="4" alignment="0" picture="9(4)" length="2"/>
<numeric name="M" level="10" usage="comp-3" digits="3" alignment="1" picture="99V9" length="2"/>
</group>
<alphanumeric name="FILLER" level="5" usage="display" picture="X" length="1"/>
<alphanumeric name="C" level="5" usage="display" picture="X" length="1">
<alphanumericCondition name="YES"><alphanumericConstant value="Y"/></alphanumericCondition>
</alphanumeric>
<national name="W" level="5" usage="national" picture="N(4)" length="8"/>
</group></dataItems></program>
)xml";

constexpr char kCopybook[] =
    "       01  R.\n"
    "           05  A PIC X(8).\n"
    "           05  T OCCURS 4.\n"
    "               10  N PIC 9(4).\n"
    "               10  M PIC 99V9.\n"
    "           05  FILLER.\n"
    "               10  B PIC X.\n"
    "           05  C PIC X.\n"
    "               88  YES VALUE 'Y'.\n"
    "           05  D REDEFINES C PIC 9.\n";

void checkAndMerge(std::string_view text) {
  using namespace fdmorph;
  std::setlocale(LC_CTYPE, "C.UTF-8");
  static compiler::MemoryTree tree;
  static std::string const path = "a.cpy";
  tree.files.emplace(path, kCopybook);
  static compiler::CompiledSource source(path, compiler::SourceOptions(), tree);
  static mapping::DescribedData const data(source, compiler::DictionaryChoice());
  (void)mapping::checkMapping(text, kMappingFile, data);
  mapping::MergeResult const merged = mapping::mergeMapping(text, kMappingFile, data, {});
  if (merged.text.empty()) return;
  mapping::MergeResult const again = mapping::mergeMapping(merged.text, kMappingFile, data, {});
  if (again.text != merged.text) failFuzzRun("a merged file stays as it is", merged.text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  using namespace fdmorph;
  static bool isWritten = false;
  if (!isWritten) writeFuzzFile(kDictionaryFile, kDictionary);
  isWritten = true;
  startFuzzLibrary();
  writeFuzzFile(kMappingFile, fuzzText(data, size));
  beginFuzzRun();
  writeDictionaryOutputs(true, "", true);
  checkAndMerge(fuzzText(data, size));
  return 0;
}

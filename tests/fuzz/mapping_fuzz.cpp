// A mapping file for a fixed data dictionary.

#include "dictionary_outputs.h"

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
  return 0;
}

// A data dictionary and a mapping file, through the four writers.

#include "dictionary_outputs.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  using namespace fdmorph;
  startFuzzLibrary();
  std::vector<std::string_view> const files = splitFuzzFiles(fuzzText(data, size), 2);
  writeFuzzFile(kDictionaryFile, files[0]);
  bool const isMapped = files.size() > 1;
  if (isMapped) writeFuzzFile(kMappingFile, files[1]);
  beginFuzzRun();
  writeDictionaryOutputs(isMapped, isMapped ? "" : "P-", true);
  return 0;
}

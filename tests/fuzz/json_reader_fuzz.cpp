// Lines of JSON: what is read does not depend on the blocks that they come in, and each
// line that is not blank is one record.

#include "fuzz_input.h"
#include "support/document_fixture.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string_view const text = fdmorph::fuzzText(data, size);
  fdmorph::document::DocumentFixture fixture("A B c");
  std::string const whole = fixture.readJson(text);
  for (std::size_t blockSize : {1U, 7U}) {
    fixture.blockSize = blockSize;
    if (fixture.readJson(text) != whole) fdmorph::failFuzzRun("blocks change the records", text);
  }
  std::size_t lines = 0;
  for (std::string_view rest = text; !rest.empty();) {
    std::size_t const end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    if (rest.data() == text.data() && line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3);
    if (line.find_first_not_of(" \t\r") != std::string_view::npos) ++lines;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  if (fixture.texts.size() != lines) fdmorph::failFuzzRun("a line is not one record", text);
  fixture.records = {"A", "B"};
  static_cast<void>(fixture.readJson(text));
  return 0;
}

// Logical lines: no physical line passes column 72. A token that ends early at
// a line end of its own leaves the column where it was, so those are only run.

#include <sstream>

#include "cobol/fixed_format.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  constexpr std::size_t kLastColumn = 72;
  fdmorph::beginFuzzRun();
  std::string_view const input = fdmorph::fuzzText(data, size);
  std::ostringstream text;
  fdmorph::OutputFixedFormatCOBOL(input, text);
  if (input.find_first_of("\r\n") != std::string_view::npos) return 0;
  std::istringstream lines(text.str());
  for (std::string line; std::getline(lines, line);) {
    if (line.size() > kLastColumn) fdmorph::failFuzzRun("a line passes column 72", line);
  }
  return 0;
}

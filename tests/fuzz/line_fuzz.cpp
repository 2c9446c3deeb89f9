// Logical lines: no physical line passes column 72. A token that ends early at
// a line end of its own leaves the column where it was, so those are only run.

#include <cstdlib>
#include <sstream>

#include "cobol/fixed_format.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  fdmorph::FuzzInputFile::silence();
  std::ostringstream text;
  fdmorph::OutputFixedFormatCOBOL({reinterpret_cast<char const*>(data), size}, text);
  std::string_view const input(reinterpret_cast<char const*>(data), size);
  if (input.find_first_of("\r\n") != std::string_view::npos) return 0;
  std::istringstream lines(text.str());
  for (std::string line; std::getline(lines, line);) {
    if (line.size() > 72) std::abort();
  }
  return 0;
}

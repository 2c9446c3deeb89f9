// Command lines: the input's lines are the arguments.

#include <sstream>
#include <vector>

#include "driver/command_line.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  fdmorph::FuzzInputFile::silence();
  std::vector<std::string> words{"fdmorph"};
  std::istringstream lines(std::string(reinterpret_cast<char const*>(data), size));
  for (std::string line; std::getline(lines, line);) words.push_back(line.c_str());
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  static_cast<void>(fdmorph::scanArguments(static_cast<int>(words.size()), arguments.data()));
  fdmorph::console.quietMode = false;
  return 0;
}

// Command lines of both programs: the lines of the input are the arguments.

#include "compiler/command_line.h"
#include "driver/command_line.h"
#include "fuzz_input.h"

namespace {

using namespace fdmorph;

/// No file can be read.
class NoFiles : public compiler::FileTree {
 public:
  std::optional<std::string> read(std::string const& /*path*/) override { return std::nullopt; }
};

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    std::size_t end = std::min(text.find('\n'), text.size());
    lines.emplace_back(std::string(text.substr(0, end)).c_str());  // up to a NUL
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  beginFuzzRun();
  std::vector<std::string> words = linesOf(fuzzText(data, size));
  NoFiles files;
  static_cast<void>(compiler::readCommandLine(words, files));

  words.insert(words.begin(), "fdmorph");
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  int const count = static_cast<int>(words.size());
  if (!openRequestedLog(count, arguments.data())) return 0;
  ScannedArguments const scanned = scanArguments(count, arguments.data());
  bool const isAsked =
      scanned.settings.run != Run::none || scanned.status || scanned.settings.givenName.empty();
  if (!isAsked) failFuzzRun("a source is named and nothing is to be done", fuzzMessages());
  return 0;
}

// What the benchmarks of data compare with: expat alone on a document, and copies of
// memory.
//
//   bare_reading expat FILE         parses the file, without any handler
//   bare_reading copy FILE TIMES    copies the bytes of the file so many times

#include <expat.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 18;

struct FreeParser {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

bool parse(char const* path) {
  std::unique_ptr<XML_ParserStruct, FreeParser> parser(XML_ParserCreate(nullptr));
  std::ifstream file(path, std::ios::binary);
  std::string block(kBlockBytes, '\0');
  while (file) {
    file.read(block.data(), static_cast<std::streamsize>(block.size()));
    bool isLast = !file;
    auto size = static_cast<int>(file.gcount());
    if (XML_Parse(parser.get(), block.data(), size, isLast ? 1 : 0) != XML_STATUS_OK) return false;
  }
  return true;
}

// Block by block, as data pass through a program.
bool copy(char const* path, long times) {
  std::ifstream file(path, std::ios::binary);
  std::string const bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  std::string to(bytes.size(), '\0');
  for (long i = 0; i < times; ++i) {
    std::memcpy(to.data(), bytes.data(), bytes.size());
    // Keeps the compiler from leaving out all copies but the last.
    asm volatile("" : : "r"(to.data()) : "memory");
  }
  return !bytes.empty();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    std::string_view task = argc > 2 ? argv[1] : "";
    if (task == "expat") return parse(argv[2]) ? EXIT_SUCCESS : EXIT_FAILURE;
    if (task == "copy" && argc > 3) {
      return copy(argv[2], std::atol(argv[3])) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    std::cerr << "Usage: bare_reading expat FILE | copy FILE TIMES\n";
  } catch (std::exception const& e) {
    std::cerr << "Exception: " << e.what() << '\n';
  }
  return EXIT_FAILURE;
}

// Sources for the bundled compiler. The first byte chooses the format and the
// directives; a record separator ends each file. The first file is the source,
// the others are the copy members A, B, C and so on.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/XMLException.hpp>

#include "fuzz_input.h"
#include "support/compiled_source.h"
#include "text/utf8.h"

namespace {

using namespace fdmorph::compiler;

constexpr char kSource[] = "source.cbl";
constexpr std::size_t kMaxFiles = 27;  // the members are A to Z

// In the byte of a digit these are its low bits, so that a seed begins with a
// digit from 0 to 7, or with a character from 8 to ? for narrow tabs.
constexpr unsigned kFormatBits = 3;
constexpr unsigned kFilesFirst = 4;
constexpr unsigned kNarrowTabs = 8;

Directives directivesOf(std::uint8_t choice) {
  constexpr Format kFormats[] = {Format::fixed, Format::variable, Format::free, Format::fixed};
  Directives directives;
  directives.writesDictionary = true;
  directives.reading.format = kFormats[choice & kFormatBits];
  if ((choice & kFilesFirst) != 0) directives.order = DictionaryOrder::filesFirst;
  if ((choice & kNarrowTabs) != 0) directives.reading.tabs = 4;
  return directives;
}

MemoryTree filesOf(std::string_view text) {
  MemoryTree tree;
  std::string name = kSource;
  char member = 'A';
  for (std::string_view file : fdmorph::splitFuzzFiles(text, kMaxFiles)) {
    tree.files[name] = file;
    name = std::string(1, member++);
  }
  return tree;
}

[[noreturn]] void fail(char const* rule, CompilationResult const& result) {
  fdmorph::failFuzzRun(rule, "status " + std::to_string(result.status) + "\n" + result.diagnostics +
                                 result.dictionary);
}

bool isWellFormed(std::string const& document) {
  fdmorph::startFuzzLibrary();
  xercesc::SAXParser parser;
  xercesc::HandlerBase throwing;  // on what is no well-formed XML
  parser.setErrorHandler(&throwing);
  parser.setValidationScheme(xercesc::SAXParser::Val_Never);
  xercesc::MemBufInputSource source(reinterpret_cast<XMLByte const*>(document.data()),
                                    document.size(), "dictionary");
  try {
    parser.parse(source);
  } catch (xercesc::SAXException const&) {
    return false;
  } catch (xercesc::XMLException const&) {
    return false;
  }
  return true;
}

// Whether a text has control characters, which a terminal may interpret, or is
// no UTF-8. A C1 control character is C2 80 to C2 9F.
bool hasControls(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto byte = static_cast<unsigned char>(text[i]);
    if ((byte < ' ' && byte != '\n') || byte == 0x7F) return true;
    if (byte == 0xC2 && static_cast<unsigned char>(text[i + 1]) < 0xA0) return true;
  }
  return !fdmorph::isUtf8(text);
}

void check(CompilationResult const& result) {
  bool isRight = result.status == kStatusOk;
  if (!isRight && result.status != kStatusError) fail("the status is unknown", result);
  bool hasError = result.diagnostics.find(" error: ") != std::string::npos;
  if (!isRight && !hasError) fail("nothing says why the source is wrong", result);
  if (hasControls(result.diagnostics)) fail("the diagnostics hold control characters", result);
  if (isRight == result.dictionary.empty()) fail("the status and the dictionary differ", result);
  if (isRight && !isWellFormed(result.dictionary)) fail("the dictionary is no XML", result);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0) return 0;
  Directives const directives = directivesOf(data[0]);
  MemoryTree tree = filesOf({reinterpret_cast<char const*>(data) + 1, size - 1});
  CompilationResult const first = compileSource(kSource, directives, tree);
  check(first);
  CompilationResult const second = compileSource(kSource, directives, tree);
  bool isSame = first.status == second.status && first.diagnostics == second.diagnostics &&
                first.dictionary == second.dictionary;
  if (!isSame) fail("the second run differs from the first", second);
  return 0;
}

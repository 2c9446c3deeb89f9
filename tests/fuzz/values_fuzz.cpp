// Bytes and texts for items of all formats. The first bytes choose the format and the
// conventions. What is read of bytes can be written, and is then read as the same;
// what is written of a text can be read, and a second time it is written as the same
// bytes. Nothing is written beyond the room that there is.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "frontend/compiled_source.h"
#include "fuzz_input.h"
#include "support/memory_tree.h"
#include "values/comparand.h"
#include "values/values.h"

namespace {

using namespace fdmorph;
using namespace fdmorph::values;

constexpr char const* kClauses[] = {
    "PIC X(7)",
    "PIC X(20) JUST",
    "PIC N(4)",
    "PIC N(4) JUST",
    "PIC 9(5)",
    "PIC S9(5)V99",
    "PIC S9(17)",
    "PIC S9(38)",
    "PIC S9(5) SIGN LEADING",
    "PIC S9(5) SIGN TRAILING SEPARATE",
    "PIC S9(5)V9 SIGN LEADING SEPARATE",
    "PIC S9(3)PPP",
    "PIC SVPP9(3)",
    "PIC SV9(15)",
    "PIC V9(16)",
    "PIC 9(4) BLANK WHEN ZERO",
    "PIC S9(7)V99 COMP-3",
    "PIC S9(8) COMP-3",
    "PIC S9(15) COMP-3",
    "PIC SVP(20)9 COMP-3",
    "PIC 9(38) COMP-3",
    "PIC 9(5) COMP-6",
    "PIC S9(4) COMP",
    "PIC S9(9)V9(9) COMP",
    "PIC 9(18) COMP-5",
    "PIC S9(18) COMP-5",
    "PIC S9(12)V9 COMP-N",
    "PIC X(3) COMP-X",
    "BINARY-CHAR",
    "BINARY-DOUBLE",
    "COMP-1",
    "COMP-2",
    "PIC ZZ,ZZ9.99-",
    "PIC $$,$$9.99CR",
    "PIC +(5).99",
    "PIC *(5).**",
    "PIC ZZ/ZZ0BZZ",
};

constexpr char const* kEncodings[] = {"cp037", "utf-8", "latin-1", "ascii"};

/// The items, compiled once.
struct Items {
  Items() {
    std::string text = "01 R.\n";
    for (char const* clauses : kClauses) text += " 05 ITEM " + std::string(clauses) + ".\n";
    tree.files["a.cpy"] = text;
    compiler::SourceOptions options;
    options.reading.format = compiler::Format::free;
    source = std::make_unique<compiler::CompiledSource>("a.cpy", options, tree);
    for (char const* name : kEncodings) pages.push_back(charset::CodePage::open(name).page);
  }

  compiler::MemoryTree tree;
  std::unique_ptr<compiler::CompiledSource> source;
  std::vector<std::shared_ptr<charset::CodePage const>> pages;
};

Conventions conventionsOf(Items const& items, std::uint8_t first, std::uint8_t second) {
  auto const dialect = (first & 4U) != 0 ? compiler::Dialect::ibm : compiler::Dialect::gnuCobol;
  Conventions conventions = makeConventions(dialect, items.pages[first & 3U]).conventions;
  conventions.trim = static_cast<Trim>((first >> 3U) % 3);
  conventions.controls = static_cast<Controls>((first >> 5U) % 3);
  conventions.blankNumbers = static_cast<BlankNumbers>(second & 3U);
  conventions.hasStrictZones = (second & 4U) != 0;
  conventions.hasFullBinaryRange = (second & 8U) != 0;
  conventions.hasEditedNumbers = (second & 16U) != 0;
  conventions.truncates = (second & 32U) != 0;
  conventions.rounding = static_cast<Rounding>((second >> 6U) % 3);
  if ((second & 1U) != 0) conventions.unmappable = U'?';
  return conventions;
}

template <Target target>
DecodeResult decoded(Values const& values, ItemFormat const& format, unsigned char const* bytes,
                     std::string& text) {
  auto const room = std::make_unique<char[]>(Values::maxTextSize(format));
  DecodeResult const result = values.decode<target>(format, bytes, room.get());
  if (result.end < room.get() || result.end + 8 > room.get() + Values::maxTextSize(format)) {
    failFuzzRun("the text is longer than its room", "");
  }
  text.assign(room.get(), result.end);
  return result;
}

using Bytes = std::vector<unsigned char>;

// What is read of canonical bytes is written as the same bytes.
void checkCanonical(Values const& values, ItemFormat const& format, Bytes const& bytes) {
  std::string text;
  DecodeResult const result = decoded<Target::plain>(values, format, bytes.data(), text);
  if (result.error != ValueError::none || result.isOmitted) return;
  Bytes again(format.size);
  EncodeResult const written = values.encode(format, text, again.data());
  if (written.error != ValueError::none) failFuzzRun("what is read cannot be written", text);
  std::string repeated;
  // x'00' at the end becomes blanks, which may belong to the text.
  if (!format.isNumber() && values.conventions().trim == Trim::none) return;
  DecodeResult const second = decoded<Target::plain>(values, format, again.data(), repeated);
  if (second.error != ValueError::none || second.isOmitted || repeated != text) {
    failFuzzRun("what is written is read as another text", text + "|" + repeated);
  }
}

void checkBytes(Values const& values, ItemFormat const& format, std::string_view content) {
  Bytes bytes(format.size);
  for (std::size_t i = 0; i < bytes.size() && i < content.size(); ++i) {
    bytes[i] = static_cast<unsigned char>(content[i]);
  }
  std::string text;
  static_cast<void>(decoded<Target::xmlText>(values, format, bytes.data(), text));
  static_cast<void>(decoded<Target::xmlAttribute>(values, format, bytes.data(), text));
  static_cast<void>(decoded<Target::json>(values, format, bytes.data(), text));
  static_cast<void>(values.readInteger(format, bytes.data()));
  checkCanonical(values, format, bytes);
}

void checkText(Values const& values, ItemFormat const& format, std::string_view text) {
  Bytes bytes(format.size);
  auto const syntax = text.size() % 2 == 0 ? NumberSyntax::decimal : NumberSyntax::exponent;
  if (values.encode(format, text, bytes.data(), syntax).error != ValueError::none) return;
  checkCanonical(values, format, bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static Items const items;
  if (size < 3) return 0;
  Values const values(conventionsOf(items, data[1], data[2]));
  compiler::DataItem const* item = items.source->data().workingStorage.first->firstChild;
  for (unsigned i = data[0] % std::size(kClauses); i > 0; --i) item = item->next;
  ItemFormat const format = makeItemFormat(*item, values.conventions());
  std::string_view const content = fuzzText(data + 3, size - 3);
  checkBytes(values, format, content);
  checkText(values, format, content);
  return 0;
}

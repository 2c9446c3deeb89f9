// Documents that are nearly spelled as this program writes them. The first bytes choose a
// layout and change absent records; the rest changes their text. A record that is
// predicted has the bytes, and one that is declined the errors, that the general reader
// and the encoder come to.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "document/decoder.h"
#include "document/encoder.h"
#include "document/predicted_reader.h"
#include "document/xml_reader.h"
#include "frontend/compiled_source.h"
#include "fuzz_input.h"
#include "layout/shifting.h"
#include "record/record_choice.h"
#include "support/document_fixture.h"
#include "support/memory_tree.h"

namespace {

using namespace fdmorph;
using document::DocumentRecord;
using document::EncodeRules;

struct Source {
  char const* text;
  char const* codePage = "latin-1";
  bool shifts = false;
  bool endsWithViews = false;
  values::BlankNumbers blankNumbers = values::BlankNumbers::refuse;
};

constexpr char kItems[] =
    "01 R. 05 A PIC X(3). 05 J PIC X(3) JUST. 05 N PIC N(2). 05 Z PIC S9(3)V9."
    " 05 S PIC S9(3) SIGN LEADING SEPARATE. 05 L PIC S9(3) SIGN LEADING. 05 W PIC 9(2)"
    " BLANK WHEN ZERO. 05 P PIC S9(4)V9 COMP-3. 05 U PIC 9(3) COMP-6. 05 B PIC S9(4) COMP."
    " 05 C PIC 9(9) COMP-5. 05 Q PIC 99PP. 05 E PIC ZZ9.9-. 05 F COMP-1. 05 D COMP-2."
    " 05 FILLER PIC X VALUE '.'.";
constexpr char kTables[] =
    "01 R. 05 N PIC 9. 05 M PIC 9. 05 T OCCURS 0 TO 3 DEPENDING ON N. 10 A PIC X."
    " 10 V OCCURS 2 PIC X. 10 U PIC X OCCURS 1 TO 2 DEPENDING ON M. 05 X OCCURS 0 TO 2"
    " DEPENDING ON M PIC 9. 05 Z PIC X.";
constexpr char kNested[] =
    "01 R. 05 T OCCURS 2. 10 N PIC 9. 10 U OCCURS 0 TO 2 DEPENDING ON N. 15 A PIC X. 05 Z PIC 9.";
constexpr char kUnnamedCounter[] =
    "01 R IDENTIFIED BY 'r'. 05 N PIC 9. 05 T OCCURS 1 TO 3 DEPENDING ON N IDENTIFIED BY 't'"
    " PIC 9. 05 Z IDENTIFIED BY 'z' PIC X.";
constexpr char kNamespaces[] =
    "01 R IDENTIFIED BY 'r' NAMESPACE 'urn:r'. 05 K IDENTIFIED BY 'k' IS ATTRIBUTE PIC 9(2)."
    " 05 L IDENTIFIED BY 'l' IS ATTRIBUTE NAMESPACE 'urn:l' PIC X(3). 05 G IDENTIFIED BY 'g'"
    " NAMESPACE ''. 10 M IDENTIFIED BY 'm' IS ATTRIBUTE PIC X(2). 10 V PIC X(3)."
    " 05 H. 10 I IDENTIFIED BY 'g' NAMESPACE 'urn:l' PIC X. 05 E IDENTIFIED BY 'e'.";
constexpr char kViews[] =
    "01 R. 05 K PIC X. 05 A PIC X(2). 05 B REDEFINES A PIC 9(5). 05 Z PIC X(2). 05 Y REDEFINES Z"
    " PIC X(4).";
constexpr char kUnion[] =
    "01 R IDENTIFIED BY 'r'. 05 U IDENTIFIED BY 'u'. 10 A PIC 9(2). 10 B REDEFINES A PIC X(4).";
constexpr char kShiftedViews[] =
    "01 R. 05 N PIC 9. 05 T PIC X OCCURS 0 TO 3 DEPENDING ON N. 05 A PIC X. 05 B REDEFINES A"
    " PIC X(3).";

constexpr std::array kSources{
    Source{kItems},
    Source{kItems, "utf-8"},
    Source{kItems, "cp037", false, false, values::BlankNumbers::omit},
    Source{kTables},
    Source{kTables, "latin-1", true},
    Source{kNested},
    Source{kNested, "latin-1", true},
    Source{kUnnamedCounter},
    Source{kNamespaces},
    Source{kViews},
    Source{kViews, "latin-1", false, true},
    Source{kUnion, "latin-1", false, true},
    Source{kShiftedViews, "latin-1", true, true},
};

/// A layout with all that reads its documents.
struct Target {
  explicit Target(Source const& from)
      : compiled("a.cpy", options(), treeOf(from.text)),
        trees(treesOf(compiled)),
        set(trees, rules(from), {}, compiled.diagnostics()),
        programs(set, output(), compiled.diagnostics()),
        names(set.names(), document::NameMatch::exact),
        encodeRules{.endsWithViews = from.endsWithViews},
        encoder(set, names, encodeRules),
        predictor(document::PredictedReader::make(set, encodeRules, compiled.diagnostics())) {}

  static compiler::SourceOptions options() {
    compiler::SourceOptions options;
    options.reading.format = compiler::Format::free;
    return options;
  }

  compiler::MemoryTree& treeOf(std::string const& text) {
    files.files["a.cpy"] = text;
    return files;
  }

  static std::vector<record::RecordTree> treesOf(compiler::CompiledSource& source) {
    std::vector<record::RecordTree> trees;
    for (compiler::DataItem const* each : record::chooseRecords(source, {})) {
      trees.emplace_back(*each, record::NamingRules{}, source.diagnostics());
    }
    return trees;
  }

  static layout::LayoutRules rules(Source const& from) {
    layout::LayoutRules rules;
    auto page = charset::CodePage::open(from.codePage).page;
    rules.conventions = values::makeConventions(compiler::Dialect::gnuCobol, page).conventions;
    rules.conventions.blankNumbers = from.blankNumbers;
    rules.tables = from.shifts ? layout::TableForm::shifted : layout::TableForm::largest;
    return rules;
  }

  static document::OutputRules output() {
    document::OutputRules rules;
    rules.hasWrapper = false;
    return rules;
  }

  compiler::MemoryTree files;
  compiler::CompiledSource compiled;
  std::vector<record::RecordTree> trees;
  layout::RecordSet set;
  document::Programs programs;
  document::NameNumbers names;
  EncodeRules encodeRules;
  document::Encoder encoder;
  std::unique_ptr<document::PredictedReader> predictor;
};

Target& targetOf(std::size_t number) {
  static std::vector<std::unique_ptr<Target>> targets(kSources.size());
  std::unique_ptr<Target>& target = targets[number];
  if (target) return *target;
  target = std::make_unique<Target>(kSources[number]);
  if (target->compiled.diagnostics().hasErrors()) {
    failFuzzRun("the layout has no errors", kSources[number].text);
  }
  return *target;
}

/// The largest form of a record as it is stored.
std::vector<unsigned char> stored(Target const& target, std::vector<unsigned char> const& full) {
  layout::Layout const& layout = target.set.layouts()[0];
  if (!layout.shifts()) return full;
  std::vector<unsigned char> bytes(full.size());
  bytes.resize(shift(layout, target.set.values(), full.data(), bytes.data()));
  return bytes;
}

/// The text of a record with some bytes changed, or of an absent one if these are wrong.
std::string makeRecord(Target const& target, FuzzedDataProvider& bytes) {
  layout::Layout const& layout = target.set.layouts()[0];
  std::vector<unsigned char> record = layout.absentBytes();
  std::vector<unsigned char> changed = record;
  for (unsigned left = bytes.ConsumeIntegralInRange(0U, 6U); left > 0; --left) {
    auto const at = bytes.ConsumeIntegralInRange<std::size_t>(0, changed.size() - 1);
    changed[at] = bytes.ConsumeIntegral<std::uint8_t>();
  }
  document::Decoder decoder(target.programs, {document::LengthRules::Ending::ignored});
  document::TextBuffer text;
  document::DataErrors errors;
  if (!decoder.decode({stored(target, changed)}, text, errors)) {
    errors.clear();
    if (!decoder.decode({stored(target, record)}, text, errors))
      failFuzzRun("absent bytes are right", "");
  }
  return std::string(text.text());
}

constexpr std::array<std::string_view, 24> kTokens{
    " ",          "\n",       "\t",           "<",   ">",   "/",        "&amp;", "&#10;", "&#65;",
    "<!-- ",      " -->",     "\"",           "1",   "0",   "-",        "+1.0",  "ab",    "</R>",
    "xmlns='u' ", "\xC3\xA4", "\xEF\xBF\xBE", "]]>", "<T>", "<![CDATA["};

void change(std::string& text, FuzzedDataProvider& bytes) {
  for (unsigned left = bytes.ConsumeIntegralInRange(0U, 6U); left > 0; --left) {
    auto const at = bytes.ConsumeIntegralInRange<std::size_t>(0, text.size());
    auto const removed = bytes.ConsumeIntegralInRange<std::size_t>(0, 4);
    text.replace(at, removed, kTokens[bytes.ConsumeIntegralInRange<std::size_t>(0, 23)]);
  }
}

std::string shown(std::span<unsigned char const> bytes) {
  return {reinterpret_cast<char const*>(bytes.data()), bytes.size()};
}

/// What the records of a document come to, one after the other.
std::string read(Target& target, std::string const& text, document::RecordPredictor* predictor,
                 std::size_t blockSize) {
  document::ReaderOptions options;
  options.records = {target.names.numberOf(target.set.layouts()[0][0].name)};
  document::XmlReader reader(document::blocksOf(text, blockSize), target.names, options, predictor);
  DocumentRecord record;
  std::string out;
  while (reader.next(record)) {
    out += std::to_string(record.number) + ' ';
    if (record.isPredicted) {
      out += shown(target.predictor->record());
    } else if (!record.instances.all.empty() &&
               target.encoder.encode(record.instances, record.errors)) {
      out += shown(target.encoder.result().bytes);
    }
    for (document::DataError const& error : record.errors) {
      out += std::string(nameOf(error.code)) + ' ' + error.path;
      // Where malformed text is told depends on where blocks end.
      if (error.code == document::ErrorCode::xml) continue;
      out += ' ' + std::to_string(error.line) + ':' + std::to_string(error.column) + error.text;
    }
    out += '\n';
  }
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  FuzzedDataProvider bytes(data, size);
  Target& target = targetOf(bytes.ConsumeIntegralInRange<std::size_t>(0, kSources.size() - 1));
  std::string text = "<x>\n";
  for (unsigned left = bytes.ConsumeIntegralInRange(1U, 4U); left > 0; --left) {
    text += makeRecord(target, bytes);
  }
  text += "</x>\n";
  change(text, bytes);
  std::string const expected = read(target, text, nullptr, SIZE_MAX);
  for (std::size_t blockSize : {SIZE_MAX, std::size_t{7}}) {
    std::string const found = read(target, text, target.predictor.get(), blockSize);
    if (found != expected) failFuzzRun("predictions change the records", text + expected + found);
  }
  return 0;
}

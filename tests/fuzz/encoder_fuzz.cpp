// Records of documents for the encoder. The first two bytes choose a layout and its
// rules; each pair of bytes after them is a step: an element, attribute or text of
// some name, or the end of an element. What is encoded has the length of its layout,
// and so do its counts.
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "document/encoder.h"
#include "frontend/compiled_source.h"
#include "fuzz_input.h"
#include "record/record_choice.h"
#include "support/memory_tree.h"

namespace {

using namespace fdmorph;
using document::Instance;
using document::Instances;

struct Source {
  char const* text;
  std::vector<std::string> when;
};

std::vector<Source> const kSources{
    {"01 R. 05 A PIC X(3). 05 N PIC S9(3)V9. 05 T OCCURS 3. 10 P PIC 9(3) COMP-3. 10 M PIC 9."
     " 10 U OCCURS 0 TO 2 DEPENDING ON M. 15 B PIC X(2). 05 XX PIC 9.",
     {}},
    {"01 R. 05 N PIC 9. 05 M PIC 9. 05 T OCCURS 0 TO 3 DEPENDING ON N. 10 A PIC X."
     " 10 U PIC X OCCURS 1 TO 2 DEPENDING ON M. 05 B PIC S9(4) COMP. 05 P COMP-1.",
     {}},
    {"01 R IDENTIFIED BY 'R' COUNT IN C1. 05 K IDENTIFIED BY 'K' PIC X. 05 G COUNT IN C2."
     " 10 A IDENTIFIED BY 'A' PIC X(2). 10 H. 15 I IDENTIFIED BY 'B' PIC 9."
     " 15 J REDEFINES I IDENTIFIED BY 'B' PIC X."
     " 05 V REDEFINES G. 10 W IDENTIFIED BY 'A' PIC 9 OCCURS 2."
     " 05 Z REDEFINES G IDENTIFIED BY 'T'. 10 X IDENTIFIED BY 'N' IS ATTRIBUTE PIC X."
     " 10 X1 PIC 9(2). 10 X2 REDEFINES X1 PIC X(2). 05 L IDENTIFIED BY 'A' COUNT IN C3"
     " PIC X.",
     {"G: K = 'G'", "V: K = 'V'", "Z: K = 'Z'", "I: K = 'G'", "J: K = '5'"}},
};

// The encoders of a layout: of XML and of JSON.
struct Target {
  explicit Target(Source const& from, bool hasCounts)
      : source("a.cpy", options(), treeOf(from.text)),
        trees(treesOf(source)),
        set(trees, rules(hasCounts), from.when, source.diagnostics()),
        xmlNames(set.names(), document::NameMatch::exact),
        jsonNames(set.names(), document::NameMatch::local),
        xml(set, xmlNames, {}),
        json(set, jsonNames, {.isJson = true, .endsWithViews = true}) {}

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

  static layout::LayoutRules rules(bool hasCounts) {
    layout::LayoutRules rules;
    auto page = charset::CodePage::open("latin-1").page;
    rules.conventions = values::makeConventions(compiler::Dialect::gnuCobol, page).conventions;
    rules.hasCounts = hasCounts;
    return rules;
  }

  compiler::MemoryTree files;
  compiler::CompiledSource source;
  std::vector<record::RecordTree> trees;
  layout::RecordSet set;
  document::NameNumbers xmlNames;
  document::NameNumbers jsonNames;
  document::Encoder xml;
  document::Encoder json;
};

Target& targetOf(std::size_t number, bool hasCounts) {
  static std::vector<std::unique_ptr<Target>> targets(2 * kSources.size());
  std::size_t const layout = number % kSources.size();
  std::unique_ptr<Target>& target = targets[2 * layout + (hasCounts ? 1 : 0)];
  if (!target) target = std::make_unique<Target>(kSources[layout], hasCounts);
  return *target;
}

constexpr std::array kTexts{"", "1", "ab", "-2.5", "5", "G", "V", "Z", "1e3", "\xE2\x82\xAC"};

void setText(Instances& instances, std::uint32_t number, std::uint8_t choice) {
  std::string const text = kTexts[choice % kTexts.size()];
  instances.all[number].textBegin = instances.texts.size();
  instances.all[number].textSize = text.size();
  instances.texts += text;
}

// A tree of parts with any names and shapes.
Instances makeInstances(std::uint8_t const* data, std::size_t size, std::uint32_t names,
                        bool isJson) {
  using Shape = Instance::Shape;
  Instances instances;
  Instance part{};
  part.shape = isJson ? Shape::object : Shape::any;
  std::uint32_t at = instances.add(part);
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    std::uint8_t const step = data[i];
    if (step % 4 == 0 && instances.all[at].parent != document::kNoInstance) {
      at = instances.all[at].parent;
      continue;
    }
    part = {};
    part.parent = at;
    part.name = (step >> 4U) % (names + 1);
    if (part.name == names) part.name = isJson ? document::kTextMember : layout::kNone;
    part.isAttribute = step % 4 == 1;
    part.isNil = data[i + 1] % 16 == 15;
    part.isInArray = isJson && (step & 4U) != 0;
    part.isEmptyArray = isJson && (step & 12U) == 8;
    part.isBroken = data[i + 1] % 64 == 63;
    part.shape = !isJson ? Shape::any : step % 4 == 3 ? Shape::object : Shape::scalar;
    part.line = 1;
    part.column = i;
    std::uint32_t const number = instances.add(part);
    setText(instances, number, data[i + 1]);
    if (step % 4 == 3) at = number;
  }
  return instances;
}

void encode(Target& target, document::Encoder& encoder, Instances const& instances) {
  document::DataErrors errors;
  bool isGood = encoder.encode(instances, errors);
  if (isGood != errors.empty() && !instances.all[0].isBroken) {
    failFuzzRun("errors are told", std::to_string(errors.size()));
  }
  if (errors.size() > document::kMaxErrorsPerRecord) {
    failFuzzRun("ten errors are told", std::to_string(errors.size()));
  }
  if (!isGood) return;
  document::EncodedRecord const& result = encoder.result();
  layout::Layout const& layout = target.set.layouts()[0];
  bool isWhole = &encoder == &target.xml;
  if (isWhole ? result.bytes.size() != layout.size() : result.bytes.size() > layout.size()) {
    failFuzzRun("the record has its length", std::to_string(result.bytes.size()));
  }
  if (result.counts.size() != layout.countSize()) {
    failFuzzRun("the counts have their length", std::to_string(result.counts.size()));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size < 2) return 0;
  bool const isJson = data[1] % 2 == 1;
  Target& target = targetOf(data[0], (data[1] & 2U) != 0);
  if (target.source.diagnostics().hasErrors() || !target.set.usageError().empty()) {
    failFuzzRun("the layout has no errors", target.set.usageError());
  }
  auto const names = static_cast<std::uint32_t>(target.set.names().size());
  Instances const instances = makeInstances(data + 2, size - 2, names, isJson);
  encode(target, isJson ? target.json : target.xml, instances);
  return 0;
}

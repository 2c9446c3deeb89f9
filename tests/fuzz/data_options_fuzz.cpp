// The options of the commands on data. The lines of the first file of an input are words
// of a command line, the second is a copybook, the third changes the bytes of an absent
// record. If the layout has no errors, the record becomes documents, these become
// records, and their documents are the same.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "document/decoder.h"
#include "document/json_program.h"
#include "fdrec/common_options.h"
#include "fdrec/data_input.h"
#include "fdrec/document_rules.h"
#include "fdrec/stored_form.h"
#include "fuzz_input.h"
#include "support/document_fixture.h"

namespace {

using namespace fdmorph;
using namespace fdmorph::fdrec;
using document::DataErrors;
using document::ErrorCode;
using document::Syntax;

constexpr char kCopybook[] = "a.cpy";
constexpr std::uint64_t kMaxSize = 1U << 16U;  // bytes of a record; more takes long

struct Options {
  CommonOptions common;
  DataOptions data;
};

/// The options of a command line; null if they are an error of usage.
std::unique_ptr<Options> parse(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) {
    std::size_t const end = std::min(text.find('\n'), text.size());
    words.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  std::ranges::reverse(words);  // as the library takes them
  auto options = std::make_unique<Options>();
  CLI::App app;
  app.set_help_flag();
  declareCommonOptions(app, options->common);
  options->data.declare(app);
  try {
    app.parse(std::move(words));
  } catch (CLI::ParseError const&) {
    return nullptr;
  }
  return options;
}

// Whether the records are small enough to be tried.
bool areSmall(CommonOptions const& common) {
  CopybookFile copybook(kCopybook, common, CopybookUse::items);
  return copybook.isUsable() && !copybook.diagnostics().hasErrors() &&
         std::ranges::all_of(copybook.records(),
                             [](auto const* each) { return each->size <= kMaxSize; });
}

/// An absent record as it is in a file, with bytes of `changes` that are not zero.
std::vector<unsigned char> makeRecord(DataInput const& input, std::string_view changes) {
  std::vector<unsigned char> record = input.set().layouts().front().absentBytes();
  std::uint64_t const size = record.size() + input.set().layouts().front().countSize();
  bool const isFixed = input.framing().format == framing::Format::fixed;
  record.resize(isFixed ? std::min(input.framing().recordLength, 2 * kMaxSize) : size);
  for (std::size_t i = 0; i < std::min(record.size(), changes.size()); ++i) {
    if (changes[i] != 0) record[i] = static_cast<unsigned char>(changes[i]);
  }
  return record;
}

/// The way of a record there and back, in one syntax.
class Trip {
 public:
  Trip(DataInput& input, DataOptions const& data, Syntax syntax, std::string_view evidence)
      : m_data(data),
        m_syntax(syntax),
        m_evidence(evidence),
        m_programs(input.set(), makeOutputRules(data, syntax), input.diagnostics()),
        m_decoder(m_programs, input.lengths()),
        m_names(input.set().names(), nameMatch(data, syntax)),
        m_options(makeReaderOptions(input.set(), m_names, data)),
        m_encoder(input.set(), m_names, makeEncodeRules(data, syntax)),
        m_form(input) {}

  void run(std::span<unsigned char const> record) {
    if (!decode(record)) return;
    std::string const text(m_text.text());
    auto reader = makeDocumentReader(m_syntax, document::blocksOf(text), m_names, m_options);
    document::DocumentRecord read;
    if (!reader->next(read)) fail("a document has a record", text);
    if (read.instances.all.empty() || !m_encoder.encode(read.instances, read.errors)) {
      checkErrors(read.errors, text);
      return;
    }
    std::string const back(m_form.assemble(m_encoder.result()));
    bool const isSame = decode({reinterpret_cast<unsigned char const*>(back.data()), back.size()});
    if (!isSame) fail("a record that was written can be read", text);
    if (m_text.text() != text && !mayDiffer()) fail("a document changes", text);
  }

 private:
  bool decode(std::span<unsigned char const> record) {
    m_text.clear();
    DataErrors errors;
    bool const isGood = m_decoder.decode({record}, m_text, errors);
    bool const areTold = isGood == errors.empty() && errors.size() <= document::kMaxErrorsPerRecord;
    if (!areTold) fail("errors are told", std::to_string(errors.size()));
    return isGood;
  }

  // An item fills up a text of which it has kept the blanks. A character that is dropped
  // may leave blanks at the end, and one that is replaced may be replaced again.
  [[nodiscard]] bool mayDiffer() const {
    return m_data.trim == values::Trim::none || m_data.controls != values::Controls::refuse;
  }

  // Views may look at bytes that do not come back as they were, a character that takes
  // the place of another may need more room, and a count may be less than its counter.
  void checkErrors(DataErrors const& errors, std::string const& text) {
    bool const areKnown = std::ranges::all_of(errors, [this](document::DataError const& each) {
      return each.code == ErrorCode::view || each.code == ErrorCode::length ||
             each.code == ErrorCode::character || (each.code == ErrorCode::odo && m_data.hasCounts);
    });
    if (!areKnown || errors.empty()) {
      fail("a document can be read back", errors.empty() ? text : text + errors.front().text);
    }
  }

  [[noreturn]] void fail(std::string_view rule, std::string const& text) const {
    failFuzzRun(rule, m_evidence + '\n' + text + '\n' + std::string(m_text.text()));
  }

  DataOptions const& m_data;
  Syntax m_syntax;
  std::string m_evidence;
  document::Programs m_programs;
  document::Decoder m_decoder;
  document::NameNumbers m_names;
  document::ReaderOptions m_options;
  document::Encoder m_encoder;
  StoredForm m_form;
  document::TextBuffer m_text;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::vector<std::string_view> const files = splitFuzzFiles(fuzzText(data, size), 3);
  std::unique_ptr<Options> const options = parse(files.empty() ? "" : files[0]);
  if (!options) return 0;
  writeFuzzFile(kCopybook, files.size() > 1 ? files[1] : "");
  if (!areSmall(options->common)) return 0;
  DataInput input(kCopybook, options->common, options->data);
  if (input.hasLayout() && !input.diagnostics().hasErrors()) {
    // What JSON cannot tell apart is an error as well.
    for (layout::Layout const& each : input.set().layouts()) {
      document::checkMemberNames(each, input.diagnostics());
    }
  }
  if (input.complete() != kClean) return 0;
  std::string_view const evidence = fuzzText(data, size);
  std::vector<unsigned char> const record = makeRecord(input, files.size() > 2 ? files[2] : "");
  for (Syntax syntax : {Syntax::xml, Syntax::json}) {
    Trip(input, options->data, syntax, evidence).run(record);
  }
  return 0;
}

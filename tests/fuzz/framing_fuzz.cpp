// Files of records. The first three bytes choose the format, its options and which
// records are read; the rest is the file. What is read does not depend on the size of
// batches, the parts of a file are the whole, and what is written is read again. The rest
// is also read as the index of a file.

#include <sys/mman.h>
#include <unistd.h>

#include "framing/parts.h"
#include "framing/read_file.h"
#include "framing/record_index.h"
#include "framing/record_writer.h"
#include "fuzz_input.h"

namespace {

using namespace fdmorph;
using namespace fdmorph::framing;

// A file in memory.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view bytes) : m_file(memfd_create("fuzz", 0)) {
    if (m_file < 0 || ::write(m_file, bytes.data(), bytes.size()) < 0) abort();
  }
  ~MemoryFile() { ::close(m_file); }
  MemoryFile(MemoryFile const&) = delete;
  MemoryFile& operator=(MemoryFile const&) = delete;

  std::string path() const { return "/proc/self/fd/" + std::to_string(m_file); }

 private:
  int m_file;
};

ReadFile readFrom(MemoryFile const& file, FramingRules const& rules, PartRange const& part,
                  std::size_t batchBytes) {
  InputStream input;
  if (input.open(file.path())) abort();
  return readAll(input, rules, part, batchBytes);
}

FramingRules rulesFrom(std::uint8_t const* choice) {
  constexpr Format kFormats[] = {Format::fixed, Format::rdw, Format::bdw, Format::gnucobolVariable,
                                 Format::lines, Format::rdw, Format::bdw, Format::lines};
  FramingRules rules;
  rules.format = kFormats[choice[0] & 7];
  rules.isRdwExclusive = (choice[0] & 8) != 0;
  rules.isRdwLittle = (choice[0] & 16) != 0;
  rules.header = choice[0] >> 6;
  rules.trailer = (choice[0] & 32) != 0 ? 3 : 0;
  rules.recordLength = choice[1] & 15;
  rules.maxRecordLength = rules.recordLength;
  rules.skip = choice[1] >> 6;
  if ((choice[1] & 48) != 0) rules.limit = choice[1] >> 4 & 3;
  rules.blockSize = 1U + choice[2];
  return rules;
}

void expectSame(ReadFile const& one, ReadFile const& other, char const* what) {
  bool const isSame = one.records == other.records && one.numbers == other.numbers &&
                      one.offsets == other.offsets && one.raw == other.raw &&
                      summaryOf(one.error) == summaryOf(other.error);
  if (!isSame) failFuzzRun(what, summaryOf(one.error) + "\n" + summaryOf(other.error));
}

void append(ReadFile& all, ReadFile const& part) {
  all.records.insert(all.records.end(), part.records.begin(), part.records.end());
  all.numbers.insert(all.numbers.end(), part.numbers.begin(), part.numbers.end());
  all.offsets.insert(all.offsets.end(), part.offsets.begin(), part.offsets.end());
  all.raw.insert(all.raw.end(), part.raw.begin(), part.raw.end());
  if (part.error) all.error = part.error;
}

// An index of the whole file has the error that a reader of the whole file tells.
void checkParts(MemoryFile const& file, FramingRules const& rules, ReadFile const& whole,
                std::uint64_t count) {
  InputStream input;
  if (input.open(file.path())) abort();
  MadeIndex const made = indexFile(input, rules, 1 + count * 5);
  if (!rules.limit && summaryOf(made.error) != summaryOf(whole.error)) {
    failFuzzRun("the index has another error", summaryOf(made.error));
  }
  if (made.error) return;
  ParsedIndex const parsed = parseIndex(made.index.text(), rules);
  if (parsed.fault) failFuzzRun("an index cannot be read", made.index.text());
  ReadFile all;
  for (std::uint64_t i = 1; i <= count; ++i) {
    append(all, readFrom(file, rules, partByIndex({i, count}, parsed.index), 100));
  }
  expectSame(whole, all, "the parts are not the whole");
}

void checkWriting(FramingRules rules, ReadFile const& read) {
  MemoryFile const file("");
  OutputStream output;
  if (output.open(file.path())) abort();
  RecordWriter writer(output, rules);
  std::vector<std::string> expected;
  for (std::string const& each : read.records) {
    if (writer.write(each) != WriteResult::written) failFuzzRun("a record is refused", each);
    std::string text = each;
    if (rules.format == Format::lines) text.resize(text.find_last_not_of(' ') + 1);
    // A return at the end of a line is part of its end.
    if (rules.format == Format::lines && text.ends_with('\r')) text.pop_back();
    expected.push_back(text);
  }
  writer.finish();
  if (!output.commit()) abort();
  rules.skip = rules.header = rules.trailer = 0;
  rules.limit.reset();
  ReadFile const again = readFrom(file, rules, {}, 1000);
  if (again.records != expected || again.error) {
    failFuzzRun("what is written is not read", summaryOf(again.error));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  constexpr std::size_t kChoices = 3;
  if (size < kChoices) return 0;
  beginFuzzRun();
  FramingRules const rules = rulesFrom(data);
  std::string_view const bytes = fuzzText(data + kChoices, size - kChoices);
  MemoryFile const file(bytes);
  ReadFile const whole = readFrom(file, rules, {}, RecordReader::kBatchBytes);
  expectSame(whole, readFrom(file, rules, {}, 1U + data[2]), "batches of another size differ");
  checkParts(file, rules, whole, 1U + data[2] % 7);
  checkWriting(rules, whole);
  ParsedIndex const index = parseIndex(bytes, rules);
  if (!index.fault && parseIndex(index.index.text(), rules).index.entries != index.index.entries) {
    failFuzzRun("an index is not what was written", index.index.text());
  }
  return 0;
}

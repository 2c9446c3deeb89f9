// Sources for the library of records. The first byte chooses the format and the
// dialect. What is shown of their records is JSON, and a copybook that is written
// of them has the same items with the same storage.

#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "copybook/copybook_writer.h"
#include "fuzz_input.h"
#include "record/part_rules.h"
#include "record/record_choice.h"
#include "record/storage_rules.h"
#include "show/json_output.h"
#include "source/diagnostic_output.h"
#include "support/memory_tree.h"

namespace {

using namespace fdmorph;
using compiler::CompiledSource;
using compiler::DataItem;

constexpr char kSource[] = "source.cbl";

// In the byte of a digit these are its low bits.
constexpr unsigned kFormatBits = 3;
constexpr unsigned kIbm = 4;

compiler::SourceOptions optionsOf(std::uint8_t choice) {
  using compiler::Format;
  constexpr Format kFormats[] = {Format::fixed, Format::variable, Format::free, Format::fixed};
  compiler::SourceOptions options;
  options.reading.format = kFormats[choice & kFormatBits];
  if ((choice & kIbm) != 0) options.dialect = compiler::Dialect::ibm;
  return options;
}

void showRecords(CompiledSource& source, compiler::SourceOptions const& options) {
  std::vector<record::RecordTree> trees;
  for (DataItem const* each : record::chooseRecords(source, {})) {
    trees.emplace_back(*each, record::NamingRules{}, source.diagnostics());
    record::checkParts(trees.back(), source.diagnostics());
    record::checkStorage(trees.back(), source.diagnostics());
  }
  std::string const text =
      show::printJson({source.file()->name, options.dialect, "utf-8", trees, &source.sources()});
  if (!nlohmann::json::accept(text)) failFuzzRun("the items are not shown as JSON", text);
}

// The storage of all items, one on a line.
void describe(DataItem const* first, std::string& out) {
  for (DataItem const* each = first; each != nullptr; each = each->next) {
    out += std::to_string(each->level) + " " + std::to_string(each->offset) + " " +
           std::to_string(each->size) + " " + std::to_string(each->occurrences()) + "\n";
    describe(each->firstChild, out);
  }
}

std::string storageOf(std::vector<DataItem const*> const& items) {
  std::string out;
  for (DataItem const* each : items) {
    out += std::to_string(each->size) + "\n";
    describe(each->firstChild, out);
  }
  return out;
}

std::vector<DataItem const*> recordsOf(CompiledSource const& source) {
  std::vector<DataItem const*> records;
  DataItem const* each = source.data().workingStorage.first;
  for (; each != nullptr; each = each->next) records.push_back(each);
  return records;
}

void writeAgain(CompiledSource const& source, compiler::SourceOptions options) {
  std::vector<DataItem const*> const records = recordsOf(source);
  if (records.empty()) return;
  compiler::MemoryTree tree;
  options.reading.format = compiler::Format::fixed;
  tree.files[kSource] = copybook::writeCopybook(records, {}, {});
  CompiledSource const again(kSource, options, tree);
  std::string const report = compiler::printDiagnostics(again.diagnostics()) + tree.files[kSource];
  if (again.diagnostics().hasErrors()) failFuzzRun("the copybook does not compile", report);
  if (storageOf(records) != storageOf(recordsOf(again))) {
    failFuzzRun("the storage of the copybook differs", report);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0) return 0;
  compiler::SourceOptions const options = optionsOf(data[0]);
  compiler::MemoryTree tree;
  tree.files[kSource] = std::string(reinterpret_cast<char const*>(data) + 1, size - 1);
  CompiledSource source(kSource, options, tree);
  if (source.diagnostics().hasErrors()) return 0;
  writeAgain(source, options);
  showRecords(source, options);
  return 0;
}

// Directive files of the bundled compiler, and what they make of a source. A
// file with errors is refused, and any other one leads to a compilation.

#include "compiler/command_line.h"
#include "compiler/compilation.h"
#include "fuzz_input.h"
#include "support/memory_tree.h"

namespace {

using namespace fdmorph::compiler;

constexpr char kSource[] =
    "\t01  A.\n"
    "       05  B PIC X(3).  COPY M.\n"
    "       05  C PIC 9(3) VALUE 1.\n";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  MemoryTree tree;
  tree.files["a.cbl"] = kSource;
  tree.files["copy/M.cpy"] = "           10  D PIC X.\n";
  tree.files["d.dir"] = fdmorph::fuzzText(data, size);
  CommandLine const line = readCommandLine({"@d.dir", "a.cbl"}, tree);
  bool const isRefused = line.action == CommandLine::Action::usageError;
  if (isRefused == line.error.empty()) fdmorph::failFuzzRun("the error is missing", line.error);
  if (isRefused) return 0;
  CompilationResult const result = compileSource(line.sourcePath, line.directives, tree);
  if (result.status != kStatusOk && result.status != kStatusError) {
    fdmorph::failFuzzRun("the status is unknown", result.diagnostics);
  }
  return 0;
}

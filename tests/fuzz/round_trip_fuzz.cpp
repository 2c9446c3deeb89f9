// There and back: a random copybook, its data dictionary, the schema and the
// enhanced copybook made from that, and the record made from the schema. Each
// step accepts what the one before it wrote.

#include "compiler/compilation.h"
#include "dictionary_outputs.h"
#include "driver/settings.h"
#include "random_copybook.h"
#include "support/memory_tree.h"
#include "text/console.h"

namespace {

using namespace fdmorph;

// Compiles a copybook in fixed format and returns its data dictionary.
std::string compile(std::string const& step, std::string const& text) {
  compiler::MemoryTree tree;
  tree.files["main.cpy"] = text;
  compiler::Directives directives;
  directives.writesDictionary = true;
  compiler::CompilationResult result = compiler::compileSource("main.cpy", directives, tree);
  if (result.status != compiler::kStatusOk) failFuzzRun(step, text + result.diagnostics);
  return std::move(result.dictionary);
}

// The bundled compiler does not know the clause that names the element. A line
// end takes its place, so that nothing moves past the margin.
std::string withoutXmlClauses(std::string_view copybook) {
  constexpr std::string_view kClause = "identified";
  std::string text;
  for (;;) {
    std::size_t const begin = copybook.find(kClause);
    text += copybook.substr(0, begin);
    if (begin == std::string_view::npos) return text;
    text += "\n           ";
    std::size_t const quote = copybook.find('"', begin);
    copybook.remove_prefix(copybook.find('"', quote + 1) + 1);
  }
}

void checkSchema(std::string const& copybook) {
  Settings settings;
  settings.givenName = settings.schemaFile = kWrittenSchemaFile;
  settings.copybookFile = "record.cpy";
  settings.promptOverwrite = false;
  settings.uniqueNames = true;
  settings.countIn = false;
  writeFuzzFile(settings.copybookFile, "");
  beginFuzzRun();
  static_cast<void>(runSchemaToCobol(settings));
  std::string const record = readFuzzFile(settings.copybookFile);
  std::string const evidence =
      copybook + readFuzzFile(kWrittenSchemaFile) + record + fuzzMessages();
  if (console.m_nErrorCount != 0) failFuzzRun("the schema is not converted", evidence);
  if (!record.empty()) compile("the record does not compile", withoutXmlClauses(record));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  startFuzzLibrary();
  FuzzedDataProvider bytes(data, size);
  std::string const copybook = RandomCopybook(bytes).text();
  writeFuzzFile(kDictionaryFile, compile("the copybook does not compile", copybook));
  for (bool isMapped : {false, true}) {
    if (isMapped) writeFuzzFile(kMappingFile, readFuzzFile(kWrittenMappingFile));
    beginFuzzRun();
    writeDictionaryOutputs(isMapped, "", false);
    compile("the enhanced copybook does not compile",
            withoutXmlClauses(readFuzzFile(kWrittenCopybookFile)));
    checkSchema(copybook);
  }
  return 0;
}

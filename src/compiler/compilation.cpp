#include "compiler/compilation.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "preprocess/text_manipulation.h"
#include "semantics/checker.h"
#include "syntax/parser.h"
#include "text/file_replacement.h"

namespace fdmorph::compiler {
namespace {

// The name of a file without folder and extension.
std::string_view baseName(std::string_view path) {
  std::string_view name = path.substr(path.rfind('/') + 1);  // npos + 1 is 0
  std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot);
}

// The name of the source in messages, for callers that compile a copy of it.
std::string sourceName() {
  char const* name = std::getenv("ZBC_SOURCE_NAME");
  return name == nullptr ? std::string() : name;
}

std::string describeMissingData(DataDivision const& data, std::string const& name) {
  return quoted(name) + (data.isProgram ? " has no data item in its working-storage or file section"
                                        : " has no data description");
}

// Returns false if the text could not be written.
bool print(std::FILE* stream, std::string const& text) {
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
         std::fflush(stream) == 0;
}

}  // namespace

std::string dictionaryPath(std::string const& sourcePath) {
  std::string folder = folderOf(sourcePath);
  return folder + std::string(baseName(sourcePath)) + ".xml";
}

CompilationResult compileSource(std::string const& path, Directives const& directives,
                                FileTree& tree, std::string const& name) {
  CompilationResult result;
  Sources sources(tree);
  Diagnostics diagnostics(sources);
  for (std::string const& each : directives.unknown) {
    diagnostics.report(Code::directive, {}, "unknown directive " + quoted(each));
  }
  DataDivision data;
  SourceFile const* file = sources.file(path, name);
  if (file == nullptr) {
    std::string const& shown = name.empty() ? path : name;
    diagnostics.report(Code::file, {}, "cannot read " + quoted(shown) + ": " + whyUnreadable(path));
  } else {
    CopySearch search(sources, directives.copying, path);
    TextPool pool;
    TextContext context{sources, diagnostics, search, pool, directives.reading};
    FileText text(context, file, {});
    ReplaceStatements replaced(text, context.pool, context.budget, context.diagnostics);
    Lexer lexer(replaced, pool);
    data.programName = baseName(path);
    Parser(lexer, pool, context.variables, diagnostics, data, [&context](Place place) {
      return context.hasTextPastMargin(place);
    }).parse();
    Checker(data, diagnostics).check();
    if (!diagnostics.hasErrors() && !data.isProgram && data.isEmpty() &&
        context.excludedLine.isKnown()) {
      diagnostics.report(
          Code::leftOut, context.excludedLine,
          "lines with a letter in column 7 are ignored, and the others have no data");
    }
    if (directives.writesDictionary && !diagnostics.hasErrors()) {
      if (hasDictionaryItems(data)) {
        result.dictionary = buildDictionary(data, directives.order, diagnostics);
      } else {
        diagnostics.report(Code::noData, {}, describeMissingData(data, file->name));
      }
    }
  }
  result.diagnostics = diagnostics.print();
  result.status = diagnostics.hasErrors() ? kStatusError : kStatusOk;
  return result;
}

int compilerMain(std::vector<std::string> const& arguments) {
  // A file that is too large or a closed pipe makes the write fail.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  DiskTree tree;
  CommandLine line = readCommandLine(arguments, tree);
  switch (line.action) {
    case CommandLine::Action::help:
      return print(stdout, helpText()) ? kStatusOk : kStatusError;
    case CommandLine::Action::version:
      return print(stdout, "zbc " FDMORPH_VERSION "\n") ? kStatusOk : kStatusError;
    case CommandLine::Action::usageError:
      print(stderr, "zbc: " + printable(line.error) + "\n" + helpText());
      return kStatusUsageError;
    case CommandLine::Action::compile:
      break;
  }
  std::string target = dictionaryPath(line.sourcePath);
  if (line.directives.writesDictionary && target == line.sourcePath) {
    print(stderr, "zbc: the dictionary would replace its source " + printable(target) + "\n");
    return kStatusUsageError;
  }
  CompilationResult result;
  try {
    result = compileSource(line.sourcePath, line.directives, tree, sourceName());
  } catch (std::bad_alloc const&) {
    print(stderr, kOutOfMemory);
    return kStatusError;
  }
  print(stderr, result.diagnostics);
  if (result.dictionary.empty()) return result.status;
  if (std::optional<std::string> why = replaceFile(target, result.dictionary)) {
    print(stderr, "zbc: error: cannot write " + printable(target) + ": " + *why + " [file]\n");
    return kStatusError;
  }
  return result.status;
}

}  // namespace fdmorph::compiler

#include "compiler/compilation.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <unordered_set>

#include "compiler/listing.h"
#include "description/dictionary_writer.h"
#include "frontend/compiled_source.h"
#include "text/depfile.h"
#include "text/file_replacement.h"

namespace fdmorph::compiler {
namespace {

constexpr std::string_view kStandardOutput = "-";

// The name of the source in messages, for callers that compile a copy of it.
std::string sourceName() {
  char const* name = std::getenv("ZBC_SOURCE_NAME");
  return name == nullptr ? std::string() : name;
}

std::string describeMissingData(DataDivision const& data, DictionaryChoice const& choice,
                                std::string const& name) {
  std::string text = quoted(name);
  if (!data.isProgram) return text + " has no data description";
  if (choice.section) return text + " has no data item in the section that SECTION chooses";
  text += " has no data item in its working-storage or file section";
  if (data.linkage.first != nullptr) return text + "; SECTION(LINKAGE) chooses its linkage section";
  if (data.localStorage.first != nullptr) {
    return text + "; SECTION(LOCAL-STORAGE) chooses its local-storage section";
  }
  return text;
}

// The dictionary, or nothing if there is an error.
std::string describeData(DataDivision const& data, Directives const& directives,
                         std::string const& name, Diagnostics& diagnostics) {
  DictionaryContent content = chooseContent(data, directives.choice, diagnostics);
  if (diagnostics.hasErrors()) return {};
  if (content.isEmpty()) {
    diagnostics.report(Code::noData, {}, describeMissingData(data, directives.choice, name));
    return {};
  }
  warnOfLosses(data, content, directives.order, diagnostics);
  return buildDictionary(data, content, directives.order, diagnostics);
}

// A rule for make with the source, its copy members and the directive files.
std::string describeFiles(CompiledSource const& source, std::string const& path,
                          Directives const& directives) {
  std::vector<std::string> files;
  std::unordered_set<std::string> known;
  auto add = [&](std::string const& name) {
    if (name != kStandardInput && known.insert(name).second) files.push_back(name);
  };
  Sources const& sources = source.sources();
  for (std::uint32_t text = 1; text <= sources.textCount(); ++text) {
    add(sources.fileOf(text)->name);
  }
  for (std::string const& each : directives.files) add(each);
  std::vector<std::string> targets = directives.depTargets;
  if (targets.empty()) targets.push_back(dictionaryPath(path));
  return writeDepfile(targets, files);
}

// Returns false if the text could not be written.
bool print(std::FILE* stream, std::string const& text) {
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
         std::fflush(stream) == 0;
}

// Reports and returns false if the text could not be written. "-" is the standard
// output stream.
bool write(std::string const& path, std::string const& text) {
  if (path == kStandardOutput) return print(stdout, text);
  std::optional<std::string> why = replaceFile(path, text);
  if (why) print(stderr, "zbc: error: cannot write " + printable(path) + ": " + *why + " [file]\n");
  return !why;
}

DiagnosticStyle styleOf(CommandLine const& line) {
  if (line.printsJson) return DiagnosticStyle::jsonLines;
  return isColorWanted() ? DiagnosticStyle::colored : DiagnosticStyle::plain;
}

// The output that would replace the source, or null.
std::string const* outputInPlaceOfSource(CommandLine const& line, std::string const& target) {
  if (line.sourcePath == kStandardInput) return nullptr;
  if (line.directives.writesDictionary && target == line.sourcePath) return &target;
  for (std::string const* each : {&line.directives.listing, &line.directives.depfile}) {
    if (*each == line.sourcePath) return each;
  }
  return nullptr;
}

}  // namespace

std::string dictionaryPath(std::string const& sourcePath) {
  if (sourcePath == kStandardInput) return std::string(kStandardOutput);
  std::string folder = folderOf(sourcePath);
  return folder + std::string(baseName(sourcePath)) + ".xml";
}

CompilationResult compileSource(std::string const& path, Directives const& directives,
                                FileTree& tree, std::string const& name, DiagnosticStyle style) {
  CompilationResult result;
  CompiledSource source(path, directives, tree, name);
  Diagnostics& diagnostics = source.diagnostics();
  for (std::string const& each : directives.unknown) {
    diagnostics.report(Code::directive, {}, describeUnknown(each));
  }
  if (directives.writesDictionary && !diagnostics.hasErrors()) {
    result.dictionary = describeData(source.data(), directives, source.file()->name, diagnostics);
  }
  if (!directives.listing.empty() && !diagnostics.hasErrors()) {
    result.listing = listItems(source.data(), source.sources());
  }
  if (!directives.depfile.empty() && !diagnostics.hasErrors()) {
    result.depfile = describeFiles(source, path, directives);
  }
  result.diagnostics = printDiagnostics(diagnostics, style);
  result.summary = printSummary(diagnostics);
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
  if (std::string const* output = outputInPlaceOfSource(line, target)) {
    print(stderr, "zbc: the output would replace the source " + printable(*output) + "\n");
    return kStatusUsageError;
  }
  CompilationResult result;
  try {
    result = compileSource(line.sourcePath, line.directives, tree, sourceName(), styleOf(line));
  } catch (std::bad_alloc const&) {
    print(stderr, kOutOfMemory);
    return kStatusError;
  }
  print(stderr, result.diagnostics);
  if (!line.printsJson) print(stderr, result.summary);
  bool isWritten = true;
  if (!result.listing.empty()) isWritten &= write(line.directives.listing, result.listing);
  if (!result.depfile.empty()) isWritten &= write(line.directives.depfile, result.depfile);
  if (!result.dictionary.empty()) isWritten &= write(target, result.dictionary);
  return isWritten ? result.status : kStatusError;
}

}  // namespace fdmorph::compiler

// One run of the compiler: all passes over one source.
#pragma once

#include <string>

#include "compiler/command_line.h"
#include "source/diagnostic_output.h"

namespace fdmorph::compiler {

inline constexpr int kStatusOk = 0;
inline constexpr int kStatusError = 1;
inline constexpr int kStatusUsageError = 2;

/// The line for a source that needs more memory than there is.
inline constexpr char kOutOfMemory[] = "zbc: error: out of memory [size]\n";

/// The result of a compilation.
struct CompilationResult {
  int status = kStatusOk;
  std::string diagnostics;
  std::string summary;     ///< the numbers of errors and warnings; empty if there are none
  std::string dictionary;  ///< empty if none was requested or there were errors
  std::string listing;     ///< the same
  std::string depfile;     ///< the same
};

/// Compiles a source without writing files. `name` is the name of the source in
/// messages, the path if empty.
[[nodiscard]] CompilationResult compileSource(std::string const& path, Directives const& directives,
                                              FileTree& tree, std::string const& name = {},
                                              DiagnosticStyle style = DiagnosticStyle::plain);

/// The path of the dictionary: that of the source with the extension xml. "-", the
/// standard output, if the source is the standard input.
[[nodiscard]] std::string dictionaryPath(std::string const& sourcePath);

/// Compiles the source named by the command line, without the program name, and
/// writes its dictionary and diagnostics. Returns the exit status.
[[nodiscard]] int compilerMain(std::vector<std::string> const& arguments);

}  // namespace fdmorph::compiler

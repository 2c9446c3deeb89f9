// One run of the compiler: all passes over one source.
#pragma once

#include <string>

#include "compiler/command_line.h"

namespace fdmorph::compiler {

inline constexpr int kStatusOk = 0;
inline constexpr int kStatusError = 1;
inline constexpr int kStatusUsageError = 2;

/// What a compilation leaves.
struct CompilationResult {
  int status = kStatusOk;
  std::string diagnostics;
  std::string dictionary;  ///< empty if none is wanted or there were errors
};

/// Compiles a source; no file is written. Messages call the source `name`; an
/// empty name is that of the path.
CompilationResult compileSource(std::string const& path, Directives const& directives,
                                FileTree& tree, std::string const& name = {});

/// The dictionary's name: that of the source with the extension xml.
std::string dictionaryPath(std::string const& sourcePath);

/// The compiler's `main`.
int compilerMain(std::vector<std::string> const& arguments);

}  // namespace fdmorph::compiler

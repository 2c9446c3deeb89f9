// The command line of zbc.
#pragma once

#include <string>
#include <vector>

#include "description/directives.h"
#include "source/source_files.h"

namespace fdmorph::compiler {

struct CommandLine {
  enum class Action { compile, help, version, usageError };

  Action action = Action::compile;
  std::string sourcePath;   ///< "-" is the standard input
  bool printsJson = false;  ///< diagnostics as JSON, a line each
  Directives directives;
  std::string error;  ///< the text of a usage error
};

/// Reads `zbc [OPTION]... [-C DIRECTIVE ...]... [@FILE] SOURCE`. The source is the first word
/// if that is not an option, or else the last word. It and the name of the
/// directive file may be in double quotes.
[[nodiscard]] CommandLine readCommandLine(std::vector<std::string> const& arguments,
                                          FileTree& tree);

/// The text of --help.
char const* helpText();

}  // namespace fdmorph::compiler

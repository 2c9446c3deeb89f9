// The command line of the compiler.
#pragma once

#include <string>
#include <vector>

#include "compiler/directives.h"
#include "source/source_files.h"

namespace fdmorph::compiler {

struct CommandLine {
  enum class Action { compile, help, version, usageError };

  Action action = Action::compile;
  std::string sourcePath;
  Directives directives;
  std::string error;  ///< of a usage error
};

/// Reads `zbc [-C DIRECTIVE ...]... [@FILE] SOURCE`. The source is the first
/// word ahead of all options or else the last word of all; it and the name of
/// the directive file may stand in double quotes.
CommandLine readCommandLine(std::vector<std::string> const& arguments, FileTree& tree);

/// The text of --help.
char const* usageText();

}  // namespace fdmorph::compiler

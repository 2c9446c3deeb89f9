// The COBOL compiler as a child process.
#pragma once

#include <string>

namespace fdmorph {

/// How the call of the compiler ended, for the process that asks.
enum class CompileOutcome {
  compiled,
  failed,       ///< exit code above zero
  notCreated,   ///< no child process
  notReturned,  ///< nothing came back; also what the child itself sees
};

/// Runs the compiler `zbc` on `compileFile` with the directives that make it
/// write its data dictionary, and waits for it. `directiveFile` may be empty;
/// both names are quoted if they hold a blank. The compiler's messages call the
/// source `sourceName`.
///
/// The child has no exit of its own: if the compiler can't be started, or has
/// been run through the log's pipe, the call returns in the child as well,
/// with notReturned. A compiler that dies by a signal passes for success.
CompileOutcome runCompiler(std::string const& compileFile, std::string const& directiveFile,
                           std::string const& sourceName);

}  // namespace fdmorph
